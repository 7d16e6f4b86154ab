// A 2 MB tmpfs mounted for one test, to see what writers do when the disk fills up. Mounting needs the right
// to (root here); without it mounted() is false and reason() says why, for the test to skip with.
#pragma once

#include "support/TempFolder.h"

#include <cerrno>
#include <cstring>
#include <sys/mount.h>
#include <sys/statvfs.h>

namespace testsupport
{

class SmallDisk
{
public:
    SmallDisk()
    {
        m_mounted = ::mount("tmpfs", m_folder.path().c_str(), "tmpfs", 0, "size=2m") == 0;
        if (!m_mounted)
            m_reason = std::string("cannot mount a 2 MB tmpfs: ") + std::strerror(errno);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk()
    {
        if (m_mounted)
            ::umount2(m_folder.path().c_str(), MNT_DETACH);
    }

    bool mounted() const { return m_mounted; }
    const std::string& reason() const { return m_reason; }
    const std::filesystem::path& path() const { return m_folder.path(); }

    // Fills the disk with a file of its own until only about left bytes are free.
    void fill(std::size_t left) const
    {
        struct statvfs disk = {};
        ::statvfs(path().c_str(), &disk);
        const std::size_t free = disk.f_bavail * disk.f_frsize;
        WriteFile(path() / "filler", std::string(free > left ? free - left : 0, 'f'));
    }

private:
    TempFolder m_folder{"vantix-small-disk"};
    bool m_mounted = false;
    std::string m_reason;
};

} // namespace testsupport
