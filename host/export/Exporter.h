// The export operations behind the SDK's VtxUtilExport functions and the export commands of macros. Each
// failure is kept, in words, as the host's last export error, for the caller to tell.
#pragma once

#include <string>

namespace vantix::host::detail
{

bool StartExport();
bool AddExportFrame();
bool FinishExport();
// Abandons the export in progress, if any, and its file; returns the file name, or "" when none was open.
std::string CancelExport();

bool ExportIsOpen();
// Why the last export operation failed; empty after a success.
const std::string& LastExportError();

} // namespace vantix::host::detail
