// Encodes and writes the frames of an export on a thread of its own, so that the next frame is drawn while
// this one is encoded. A short queue between the two bounds the memory the frames take.
#pragma once

#include "export/FrameWriter.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace vantix::host::detail
{

class BackgroundFrameWriter
{
public:
    // Frames drawn but not yet encoded, at most: one being encoded and one waiting keep both busy.
    static constexpr std::size_t QueueLength = 1;

    explicit BackgroundFrameWriter(std::unique_ptr<FrameWriter> writer);
    // Abandons the export unless it was finished: the frames still waiting are dropped and the file at
    // the export's path stays as it was.
    ~BackgroundFrameWriter();
    BackgroundFrameWriter(const BackgroundFrameWriter&) = delete;
    BackgroundFrameWriter& operator=(const BackgroundFrameWriter&) = delete;

    // Queues an image of the writer's size, waiting while the queue is full. Throws ExportError for an
    // image of another size, and for the failure of an earlier frame (told once, at the first call after it).
    void write(Image image);
    // Writes what is queued and completes the file. Throws ExportError (the earlier file then stays).
    void finish();

private:
    void run();
    // Throws the failure of the thread, if there was one; called with the mutex held.
    void throwFailure();

    std::unique_ptr<FrameWriter> m_writer;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Image> m_queue;
    bool m_closing = false;  // no more frames come
    bool m_encoding = false; // the thread holds a frame
    std::string m_failure;   // why the thread stopped early; empty while all is well
    std::thread m_thread;    // last: started when everything it uses is there
};

} // namespace vantix::host::detail
