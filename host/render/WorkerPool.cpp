#include "render/WorkerPool.h"

#include <utility>

namespace vantix::host::detail
{

WorkerPool::WorkerPool(int threads)
{
    for (int i = 1; i < threads; ++i)
        m_workers.emplace_back([this] { work(); });
}

WorkerPool::~WorkerPool()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
    }
    m_jobStarted.notify_all();
    for (std::thread& worker : m_workers)
        worker.join();
}

void WorkerPool::run(int count, const std::function<void(int)>& task)
{
    if (count <= 0)
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_task = &task;
        m_count = count;
        m_next = 0;
        m_busyWorkers = static_cast<int>(m_workers.size());
        ++m_job;
    }
    m_jobStarted.notify_all();
    takeTasks();
    std::unique_lock<std::mutex> lock(m_mutex);
    m_jobDone.wait(lock, [this] { return m_busyWorkers == 0; });
    m_task = nullptr;
    if (m_error)
        std::rethrow_exception(std::exchange(m_error, nullptr));
}

void WorkerPool::work()
{
    long seen = 0;
    for (;;)
    {
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_jobStarted.wait(lock, [&] { return m_stopping || m_job != seen; });
            if (m_stopping)
                return;
            seen = m_job;
        }
        takeTasks();
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (--m_busyWorkers == 0)
            m_jobDone.notify_one();
    }
}

void WorkerPool::takeTasks()
{
    for (int i = m_next++; i < m_count; i = m_next++)
    {
        try
        {
            (*m_task)(i);
        }
        catch (...)
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            if (!m_error)
                m_error = std::current_exception();
        }
    }
}

} // namespace vantix::host::detail
