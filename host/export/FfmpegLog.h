// FFmpeg's own messages, turned into the host's. FFmpeg and its encoders talk on standard error in their own
// form ("[libx264 @ 0x...] ..."), from their own threads, and often about nothing the user must know. The
// host keeps only their last complaint (level error or worse) and tells it, once, within the message of the
// failure it explains; everything else they say is dropped.
#pragma once

#include <string>

namespace vantix::host::detail
{

// Routes FFmpeg's messages here; once is enough, more calls do nothing.
void CaptureFfmpegMessages();

// Forgets what FFmpeg complained of, at the start of an operation whose failures it could explain.
void ForgetFfmpegComplaint();

// FFmpeg's words for an error code, followed by its complaint since it was last forgotten, in one line of
// bounded length: "Invalid argument (mpeg4: dimensions too large for MPEG-4)". The complaint is told once.
std::string FfmpegErrorText(int error);

} // namespace vantix::host::detail
