#include "export/BackgroundFrameWriter.h"

#include <exception>
#include <utility>

namespace vantix::host::detail
{

BackgroundFrameWriter::BackgroundFrameWriter(std::unique_ptr<FrameWriter> writer)
    : m_writer(std::move(writer)), m_thread([this] { run(); })
{
}

BackgroundFrameWriter::~BackgroundFrameWriter()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_queue.clear();
        m_closing = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void BackgroundFrameWriter::write(Image image)
{
    m_writer->checkSize(image);
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_queue.size() < QueueLength || !m_failure.empty(); });
    throwFailure();
    m_queue.push_back(std::move(image));
    lock.unlock();
    m_changed.notify_all();
}

void BackgroundFrameWriter::finish()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return (m_queue.empty() && !m_encoding) || !m_failure.empty(); });
    throwFailure();
    lock.unlock();
    // Every frame is written and the thread waits for more: completing the file here is safe.
    m_writer->finish();
}

void BackgroundFrameWriter::throwFailure()
{
    if (!m_failure.empty())
        throw ExportError(std::exchange(m_failure, "the export had failed before"));
}

void BackgroundFrameWriter::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;)
    {
        m_changed.wait(lock, [this] { return !m_queue.empty() || m_closing; });
        if (m_queue.empty())
            return;
        Image image = std::move(m_queue.front());
        m_queue.pop_front();
        m_encoding = true;
        lock.unlock();
        m_changed.notify_all(); // room in the queue
        std::string failure;
        try
        {
            m_writer->write(image);
        }
        catch (const std::exception& error)
        {
            failure = error.what();
        }
        lock.lock();
        m_encoding = false;
        if (!failure.empty())
        {
            m_failure = failure;
            m_queue.clear();
            m_closing = true;
        }
        m_changed.notify_all();
    }
}

} // namespace vantix::host::detail
