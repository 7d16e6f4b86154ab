#pragma once

#include <string>

namespace vantix::vtxutiltools
{

class ListModelKeyFrame;
struct Settings_s;

// The one way a key frame file is opened, from the main dialog and from a replayed macro alike: reads the
// file into model and settings, makes it the main dialog's current file, and records the command that opens
// it again while the host records a macro. A file that cannot be read throws the reader's KeyFrameError and
// changes nothing: not the model, the settings, the current file nor the macro.
void OpenSettingsFile(const std::string& fileName, ListModelKeyFrame& model, Settings_s& settings);

} // namespace vantix::vtxutiltools
