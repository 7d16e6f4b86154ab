// The help pages add-ons show (VtxUtilHelp): pages of the host's help folder, or web addresses. Where a
// browser may be started the page opens in it; otherwise standard error tells where the page is. Every
// request is kept for the tests.
#pragma once

#include <vantix/host/Gui.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace vantix::host::detail
{

using vantix::host::HelpRequest;

class HelpPages
{
public:
    HelpPages();

    // Answers whether the page exists (an address always does).
    bool show(const std::string& page, bool isURL);

    const std::vector<HelpRequest>& requests() const { return m_requests; }
    void setFolder(std::filesystem::path folder) { m_folder = std::move(folder); }
    const std::filesystem::path& folder() const { return m_folder; }
    void allowBrowser(bool allowed) { m_browserAllowed = allowed; }
    // Shows pages in place of a browser; a reset keeps it.
    void setViewer(vantix::host::HelpViewer viewer) { m_viewer = std::move(viewer); }
    // The source tree's help folder, no browser, no requests: tests must never start a browser.
    void reset();

private:
    std::filesystem::path m_folder;
    bool m_browserAllowed = true;
    vantix::host::HelpViewer m_viewer;
    std::vector<HelpRequest> m_requests;
};

} // namespace vantix::host::detail
