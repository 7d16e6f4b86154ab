#include "desktop/HostCommands.h"

#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>

#include <array>
#include <stdexcept>

namespace vantix::host::desktop
{

void RunHostCommand(const std::string& line)
{
    const MacroResult result = runMacroText(std::string(MacroHeader) + "\n" + line + "\n", "desktop");
    if (!result.ok())
        throw std::runtime_error(result.message);
}

void LoadDemoData()
{
    RunHostCommand("$!LOADDATA DEMO");
}

void LoadMeshFile(const std::string& path)
{
    RunHostCommand("$!LOADDATA FILE = " + quotedMacroText(path));
}

void TurnView(double psiDegrees, double thetaDegrees)
{
    if (thetaDegrees != 0.0)
        RunHostCommand("$!ROTATE3DVIEW THETA = " + macroNumber(thetaDegrees));
    if (psiDegrees != 0.0)
        RunHostCommand("$!ROTATE3DVIEW PSI = " + macroNumber(psiDegrees));
}

void SetViewWidth(double width)
{
    RunHostCommand("$!SETSTYLEVALUE ThreeDView ViewWidth = " + macroNumber(width));
}

void PanView(double right, double up)
{
    const ViewState current = view();
    const std::vector<double> m = viewMatrix(); // rows: the eye's right, up and towards-viewer axes
    const std::array<double, 3> position = {current.x - right * m[0] - up * m[3],
                                            current.y - right * m[1] - up * m[4],
                                            current.z - right * m[2] - up * m[5]};
    const char* const axes[] = {"X", "Y", "Z"};
    for (int i = 0; i < 3; ++i)
        RunHostCommand(std::string("$!SETSTYLEVALUE ThreeDView ViewerPosition ") + axes[i] + " = " +
                       macroNumber(position[i]));
}

} // namespace vantix::host::desktop
