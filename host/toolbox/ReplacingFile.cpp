#include <vantix/toolbox/ReplacingFile.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <mutex>
#include <random>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace vantix::toolbox
{

namespace
{

// The temporary files a fatal signal removes: fixed storage, because a signal handler may neither allocate
// nor lock. A slot is Filling while its path is copied in, and the handler reads only Ready slots.
enum SlotState : int
{
    Free,
    Filling,
    Ready
};
constexpr std::size_t TemporarySlots = 64;
std::array<std::atomic<int>, TemporarySlots> g_slotStates{};
std::array<std::array<char, PATH_MAX>, TemporarySlots> g_slotPaths{};

int TakeSlot(const std::string& path)
{
    if (path.size() >= PATH_MAX)
        return -1;
    for (std::size_t slot = 0; slot < TemporarySlots; ++slot)
    {
        int expected = Free;
        if (!g_slotStates[slot].compare_exchange_strong(expected, Filling))
            continue;
        std::memcpy(g_slotPaths[slot].data(), path.c_str(), path.size() + 1);
        g_slotStates[slot].store(Ready);
        return static_cast<int>(slot);
    }
    return -1; // more files at once than slots: only a fatal signal would leave this one behind
}

void FreeSlot(int slot)
{
    if (slot >= 0)
        g_slotStates[static_cast<std::size_t>(slot)].store(Free);
}

struct Kept
{
    dev_t device;
    ino_t inode;
    std::string why;
};

std::mutex g_keptMutex;
std::map<int, Kept> g_kept;
int g_nextKept = 0;

// Why the file at path must not be replaced now, or "" when nothing keeps it.
std::string WhyKept(const std::string& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return "";
    const std::lock_guard<std::mutex> lock(g_keptMutex);
    for (const auto& [entry, kept] : g_kept)
        if (kept.device == status.st_dev && kept.inode == status.st_ino)
            return kept.why;
    return "";
}

// Where writing path leads: through its symbolic links, to the file that is replaced.
std::string ResolvedTarget(const std::string& path)
{
    std::filesystem::path target(path);
    for (int links = 0; links < 40; ++links)
    {
        std::error_code error;
        if (!std::filesystem::is_symlink(std::filesystem::symlink_status(target, error)))
            return target.string();
        const std::filesystem::path next = std::filesystem::read_symlink(target, error);
        if (error)
            return target.string();
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    return target.string(); // a loop of links: opening it tells the user so
}

std::string TemporaryName(const std::filesystem::path& target)
{
    static std::mt19937_64 random(std::random_device{}() ^ static_cast<std::uint64_t>(::getpid()));
    static std::mutex mutex;
    const std::lock_guard<std::mutex> lock(mutex);
    char suffix[17];
    std::snprintf(suffix, sizeof suffix, "%016llx", static_cast<unsigned long long>(random()));
    return (target.parent_path() / ("." + target.filename().string() + "." + suffix + ".part")).string();
}

} // namespace

ReplacingFile::ReplacingFile(std::string path) : m_path(std::move(path)), m_target(ResolvedTarget(m_path))
{
    if (m_path.empty())
        fail("the file name is empty");
    struct stat status = {};
    const bool exists = ::stat(m_target.c_str(), &status) == 0;
    if ((exists && S_ISDIR(status.st_mode)) || std::filesystem::path(m_target).filename().empty())
        fail("it is a folder");
    if (exists && !S_ISREG(status.st_mode))
        fail("it is not a regular file");
    if (const std::string why = WhyKept(m_target); !why.empty())
        fail(why);

    int descriptor = -1;
    for (int attempt = 0; descriptor < 0 && attempt < 100; ++attempt)
    {
        m_temporary = TemporaryName(m_target);
        // Made here and now, so that removing it can never remove someone else's file.
        descriptor = ::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor < 0 && errno != EEXIST)
            fail(std::strerror(errno));
    }
    if (descriptor < 0)
        fail("no temporary file can be made beside it");
    m_slot = TakeSlot(m_temporary);
    // The replacement keeps the permissions of the file it replaces.
    if (exists)
        (void)::fchmod(descriptor, status.st_mode & 07777);
    m_stream = ::fdopen(descriptor, "wb");
    if (!m_stream)
    {
        const int reason = errno;
        ::close(descriptor);
        ::unlink(m_temporary.c_str());
        FreeSlot(m_slot);
        fail(std::strerror(reason));
    }
}

ReplacingFile::~ReplacingFile()
{
    if (m_stream)
        std::fclose(m_stream);
    if (!m_committed)
        ::unlink(m_temporary.c_str());
    FreeSlot(m_slot);
}

void ReplacingFile::write(const void* bytes, std::size_t count)
{
    if (!m_stream || std::fwrite(bytes, 1, count, m_stream) != count)
        fail(std::strerror(errno));
}

void ReplacingFile::writeAt(long offset, const void* bytes, std::size_t count)
{
    if (!m_stream || std::fseek(m_stream, offset, SEEK_SET) != 0)
        fail(std::strerror(errno));
    write(bytes, count);
    if (std::fseek(m_stream, 0, SEEK_END) != 0)
        fail(std::strerror(errno));
}

void ReplacingFile::commit()
{
    std::FILE* stream = m_stream;
    m_stream = nullptr;
    // Another writer may have written the temporary file through its own descriptor: flushing this one
    // puts the file's contents on disk whichever wrote them.
    bool written = stream && std::fflush(stream) == 0 && ::fsync(::fileno(stream)) == 0;
    int reason = errno;
    if (stream && std::fclose(stream) != 0 && written)
    {
        written = false;
        reason = errno;
    }
    if (!written)
        fail(std::strerror(reason));
    if (const std::string why = WhyKept(m_target); !why.empty())
        fail(why);
    if (std::rename(m_temporary.c_str(), m_target.c_str()) != 0)
        fail(std::strerror(errno));
    m_committed = true;
    // The new name on disk too; a folder that cannot be opened only loses that.
    const std::string folderPath = std::filesystem::path(m_target).parent_path().string();
    const int folder =
        ::open(folderPath.empty() ? "." : folderPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0)
    {
        (void)::fsync(folder);
        ::close(folder);
    }
}

void ReplacingFile::fail(const std::string& reason) const
{
    throw std::runtime_error("cannot write " + m_path + ": " + reason);
}

void WriteWholeFile(const std::string& path, std::string_view text)
{
    ReplacingFile file(path);
    file.write(text);
    file.commit();
}

KeptFile::KeptFile(const std::string& path, std::string why)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return;
    const std::lock_guard<std::mutex> lock(g_keptMutex);
    m_entry = g_nextKept++;
    g_kept.emplace(m_entry, Kept{status.st_dev, status.st_ino, std::move(why)});
}

KeptFile::~KeptFile()
{
    const std::lock_guard<std::mutex> lock(g_keptMutex);
    g_kept.erase(m_entry);
}

void RemoveTemporaryFilesNow()
{
    for (std::size_t slot = 0; slot < TemporarySlots; ++slot)
        if (g_slotStates[slot].load() == Ready)
            ::unlink(g_slotPaths[slot].data());
}

} // namespace vantix::toolbox
