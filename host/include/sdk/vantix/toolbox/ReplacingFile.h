// Writing a user's file whole or not at all. The contents go into a temporary file beside the target, which
// is renamed over the target only once it is complete and on disk; until then the earlier file at the path
// stays as it was, and a failure, a cancel or a signal leaves nothing but that earlier file. A symbolic link
// is written through: its target is replaced, the link stays. A path that holds anything but a regular file
// (a folder, a device, a pipe) is refused before anything is written, and so is a file that the program is
// reading at the time (KeptFile).
#pragma once

#include <VtxUtil.h>

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace vantix::toolbox
{

class VTX_SDK_API ReplacingFile
{
public:
    // Makes the temporary file. Throws std::runtime_error, one line naming path and the reason, when path
    // cannot be replaced or no file can be made beside it.
    explicit ReplacingFile(std::string path);
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;
    // Unless committed, the temporary file goes.
    ~ReplacingFile();

    // The path as given, for messages.
    const std::string& path() const { return m_path; }
    // Where the contents go, for a writer that opens the file itself; it exists, empty, until commit.
    const std::string& temporaryPath() const { return m_temporary; }
    // The temporary file open for writing. Throws std::runtime_error naming path when it cannot be written.
    void write(const void* bytes, std::size_t count);
    void write(std::string_view text) { write(text.data(), text.size()); }
    // Writes count bytes at offset, for a header completed at the end.
    void writeAt(long offset, const void* bytes, std::size_t count);

    // Flushes the contents to disk and renames the temporary file over the target. Throws std::runtime_error
    // naming path when that fails; the target is then as it was.
    void commit();

private:
    [[noreturn]] void fail(const std::string& reason) const;

    std::string m_path;
    std::string m_target; // the file replaced: path, or where its symbolic links lead
    std::string m_temporary;
    std::FILE* m_stream = nullptr;
    int m_slot = -1; // in the list of temporary files that a fatal signal removes
    bool m_committed = false;
};

// Writes text to path whole or not at all (ReplacingFile). Throws std::runtime_error naming path.
VTX_SDK_API void WriteWholeFile(const std::string& path, std::string_view text);

// While one lives, no ReplacingFile replaces the file at path (the file itself, by whatever path or link it
// is named); the refusal says why, e.g. "it is the macro being replayed". A path that names no file keeps
// nothing.
class VTX_SDK_API KeptFile
{
public:
    KeptFile(const std::string& path, std::string why);
    KeptFile(const KeptFile&) = delete;
    KeptFile& operator=(const KeptFile&) = delete;
    ~KeptFile();

private:
    int m_entry = -1;
};

// For a handler of a fatal signal, and only there: removes the temporary files of every ReplacingFile not
// yet committed. Safe in a signal handler (it only calls unlink).
VTX_SDK_API void RemoveTemporaryFilesNow();

} // namespace vantix::toolbox
