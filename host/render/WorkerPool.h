// Threads that share out the numbered tasks of one job at a time. The thread that hands in a job works on
// it too and gets it back only when every task is done, so a job is as good as a plain loop to the code
// that runs it, only spread over the cores.
#pragma once

#include <atomic>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace vantix::host::detail
{

class WorkerPool
{
public:
    // threads counts the caller's own: 1 makes no thread and runs every job in the caller.
    explicit WorkerPool(int threads);
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    int threads() const { return static_cast<int>(m_workers.size()) + 1; }
    // Calls task(0) .. task(count - 1), each once, on any of the threads, and returns when all have
    // returned. The first exception a task throws is thrown here once the others are done.
    void run(int count, const std::function<void(int)>& task);

private:
    void work();
    void takeTasks();

    std::vector<std::thread> m_workers;
    std::mutex m_mutex;
    std::condition_variable m_jobStarted;
    std::condition_variable m_jobDone;
    const std::function<void(int)>* m_task = nullptr;
    int m_count = 0;
    std::atomic<int> m_next{0};
    int m_busyWorkers = 0;
    long m_job = 0;
    bool m_stopping = false;
    std::exception_ptr m_error;
};

} // namespace vantix::host::detail
