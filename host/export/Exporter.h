// The export operations behind the SDK's VtxUtilExport functions. Each failure is kept, in words, as the
// host's last export error, and printed on standard error for the program's user.
#pragma once

namespace vantix::host::detail
{

bool StartExport();
bool AddExportFrame();
bool FinishExport();
void CancelExport();

} // namespace vantix::host::detail
