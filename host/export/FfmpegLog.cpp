#include "export/FfmpegLog.h"

extern "C"
{
#include <libavutil/error.h>
#include <libavutil/log.h>
}

#include <cstdarg>
#include <cstdio>
#include <mutex>

namespace vantix::host::detail
{

namespace
{

// Long enough for any complaint FFmpeg makes, short enough to keep a message one readable line.
constexpr std::size_t LongestComplaint = 200;

std::mutex g_mutex;
std::string g_pending;   // a line FFmpeg is still writing, in pieces
std::string g_complaint; // its last complete one

// Control bytes (the line break included) become spaces; outer spaces go.
std::string OneLine(std::string text)
{
    for (char& c : text)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f)
            c = ' ';
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return "";
    text = text.substr(first, text.find_last_not_of(' ') - first + 1);
    if (text.size() > LongestComplaint)
        text = text.substr(0, LongestComplaint - 3) + "...";
    return text;
}

void OnFfmpegMessage(void* object, int level, const char* format, va_list arguments)
{
    if (level > AV_LOG_ERROR)
        return;
    char piece[1024];
    std::vsnprintf(piece, sizeof piece, format, arguments);
    const std::lock_guard<std::mutex> lock(g_mutex);
    if (g_pending.empty() && object && *static_cast<AVClass**>(object))
    {
        const AVClass* kind = *static_cast<AVClass**>(object);
        g_pending = std::string(kind->item_name(object)) + ": ";
    }
    if (g_pending.size() < 2 * LongestComplaint)
        g_pending += piece;
    const std::string text(piece);
    if (!text.empty() && text.back() == '\n')
    {
        g_complaint = OneLine(g_pending);
        g_pending.clear();
    }
}

} // namespace

void CaptureFfmpegMessages()
{
    static const bool captured = (av_log_set_callback(OnFfmpegMessage), true);
    (void)captured;
}

void ForgetFfmpegComplaint()
{
    const std::lock_guard<std::mutex> lock(g_mutex);
    g_pending.clear();
    g_complaint.clear();
}

std::string FfmpegErrorText(int error)
{
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(error, text, sizeof text);
    std::string complaint;
    {
        const std::lock_guard<std::mutex> lock(g_mutex);
        complaint = g_complaint.empty() ? OneLine(g_pending) : g_complaint;
        g_pending.clear();
        g_complaint.clear();
    }
    return complaint.empty() ? text : std::string(text) + " (" + complaint + ")";
}

} // namespace vantix::host::detail
