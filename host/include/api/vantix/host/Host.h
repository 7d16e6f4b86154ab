// The host's own API for its program and for tests: set the host up, act as its user, and read back what
// happened. Add-ons never use it; they see only the SDK (VtxUtil.h, vantix/toolbox/...).
#pragma once

#include <VtxUtil.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vantix::host
{

// ---- The whole state -----------------------------------------------------------------------------------
// Back to a clean host: no frames, default styles, no recording, no status line, no scripted answers, no
// logs and no reported errors. Registered add-ons stay registered (a loaded module cannot be unloaded
// behind its back), but their lock depths are cleared.
void reset();

// Protocol errors the host has noticed in what add-ons did (an unbalanced lock finish, a status line
// finished twice, drawing resumed without a suspension, ...). A correct add-on leaves this empty.
std::vector<std::string> hostErrors();
void clearHostErrors();

// ---- Add-ons and locks ---------------------------------------------------------------------------------
struct AddOnInfo
{
    AddOn_pa handle = nullptr;
    int sdkVersion = 0;
    std::string name;
    std::string version;
    std::string author;
};
std::vector<AddOnInfo> registeredAddOns();
int lockDepth(AddOn_pa addOn);
int globalLockDepth();

// ---- Frames --------------------------------------------------------------------------------------------
// A new frame goes on top of the stack and becomes active. Its view is the host's default 3D view.
UniqueID_t addFrame(PlotType_e plotType = PlotType_Cartesian3D);
void setPlotType(PlotType_e plotType); // of the active frame
// Unique ids from the bottom of the stack to the top.
std::vector<UniqueID_t> frameStack();
// The active frame's id; 0 when there is none.
UniqueID_t activeFrame();
bool activateFrame(UniqueID_t uniqueID);
// Takes a frame off the page; when it was the active one, the top frame becomes active. Throws
// std::invalid_argument for an unknown frame and std::logic_error during a lightweight frame walk.
void deleteFrame(UniqueID_t uniqueID);

// ---- The 3D view of the active frame -------------------------------------------------------------------
// Angles in degrees, lengths in model units, as the host keeps them.
struct ViewState
{
    double x = 0.0, y = 0.0, z = 0.0;
    double psi = 0.0, theta = 0.0, alpha = 0.0;
    double width = 0.0;
    bool perspective = false;
    double fieldOfView = 0.0;
    double originX = 0.0, originY = 0.0, originZ = 0.0; // the rotation origin
};
ViewState view();
// Sets the whole view at once, angles wrapped into (-180, 180], with no dolly and no orbit.
void setView(const ViewState& view);
// The model-to-eye rotation of the active frame's view, row-major: rows are the eye's x (right), y (up)
// and z (towards the viewer) axes in model coordinates.
std::vector<double> viewMatrix();

// ---- Style ---------------------------------------------------------------------------------------------
using StyleData = std::variant<bool, int, double, std::string>;
// Throws std::invalid_argument for a path the host does not know or a value of the wrong type.
void setStyle(const std::vector<std::string>& path, const StyleData& value);
StyleData style(const std::vector<std::string>& path);

// ---- Drawing -------------------------------------------------------------------------------------------
int redrawCount();         // redraws that drew
int skippedRedrawCount();  // redraws asked for while drawing was suspended
int drawSuspensionDepth(); // 0 while the host draws

// ---- Solution time of the active frame -----------------------------------------------------------------
double solutionTime();
void setSolutionTime(double solutionTime);

// ---- Status line ---------------------------------------------------------------------------------------
struct StatusEvent
{
    enum class Kind
    {
        Start,
        SetText,
        Check,
        Finish
    };
    Kind kind = Kind::Start;
    std::string text;                       // Start and SetText
    int percent = 0;                        // Check
    bool showStop = false, showBar = false; // Start
    bool answer = true;                     // Check: what the host answered (false: the user asked to stop)
};
// The status line's events since the last reset (the latest 65,536 at least), oldest first.
std::vector<StatusEvent> statusEvents();
bool statusIsShown();
std::string statusText();
// The user asks to stop at the n-th percent check from now (1 for the next one). From then on every
// check answers FALSE until the status line is finished.
void scriptCancelAtCheck(int n);
// The user asks to stop now: the next check answers FALSE.
void requestCancel();
// The same, safe to call from a signal handler (Ctrl-C in the program).
void requestCancelFromSignal();
// The program's progress display: called with every status event as it happens (null to stop).
void setStatusObserver(std::function<void(const StatusEvent&)> observer);

// ---- Macro recording -----------------------------------------------------------------------------------
void setMacroRecording(bool on);
std::vector<std::string> recordedMacroLines();

// ---- The journal of the active frame's data set -------------------------------------------------------
struct JournalCommand
{
    std::string addOnID;
    std::string instructions;
    std::optional<std::string> rawData; // none when the add-on passed null
};
// The commands kept in the journal (VtxUtilDataSetAddJournalCommand), oldest first; empty when the active
// frame has no data set.
std::vector<JournalCommand> journalCommands();
// What VtxUtilDataSetJournalIsValid answers.
bool journalIsValid();
// Gives up on the journal (false), as the host would after a change to the data that the journal cannot
// tell, or takes it up again (true). Throws std::logic_error when the active frame has no data set.
void setJournalValid(bool valid);

// ---- Host memory handed to add-ons ---------------------------------------------------------------------
// Host strings (VtxUtilStringAlloc) not yet released.
long outstandingHostStrings();

// ---- Tracing -------------------------------------------------------------------------------------------
// While on, every SDK call and style write is appended to a trace, as "VtxUtilRedraw" or
// "StyleValue.set ThreeDView/PSIAngle", so that tests can check the order of what an add-on did. Off after
// reset; calls are counted whether tracing is on or not.
void setTracing(bool on);
std::vector<std::string> trace();
// How often an SDK function was called since the last reset, by its name ("VtxUtilViewRotate3D").
long callCount(const std::string& functionName);

} // namespace vantix::host
