// What the desktop's own menus and mouse do to the host, as lines of the host's macro language replayed
// at once: the host carries them out exactly as in a macro file and records them while it records, so a
// session at the desktop replays in batch.
#pragma once

#include <string>

namespace vantix::host::desktop
{

// Throws std::runtime_error with the host's one-line message when the line fails.
void RunHostCommand(const std::string& line);

void LoadDemoData();
void LoadMeshFile(const std::string& path);
// The viewer orbits the rotation origin: psi tilts the view, theta turns it about the vertical axis.
void TurnView(double psiDegrees, double thetaDegrees);
// The view shows this width of the model (zooming in or out).
void SetViewWidth(double width);
// Moves the picture across the screen, right and up by these model units: the viewer moves the other way.
void PanView(double right, double up);

} // namespace vantix::host::desktop
