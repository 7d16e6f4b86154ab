#include "gui/HelpPages.h"

#include "gui/Browser.h"

#include <cstdio>
#include <system_error>

namespace vantix::host::detail
{

namespace
{

// The host runs from its build tree, beside the source tree whose docs/help holds the pages.
std::filesystem::path DefaultFolder()
{
    return (std::filesystem::path(__FILE__).parent_path() / ".." / ".." / "docs" / "help").lexically_normal();
}

} // namespace

HelpPages::HelpPages() : m_folder(DefaultFolder()) {}

bool HelpPages::show(const std::string& page, bool isURL)
{
    HelpRequest request;
    request.page = page;
    request.isURL = isURL;
    std::error_code error;
    if (isURL)
    {
        request.location = page;
        request.found = true;
    }
    else
    {
        const std::filesystem::path file = m_folder / page;
        request.location = file.string();
        request.found = std::filesystem::is_regular_file(file, error);
    }
    if (request.found && m_viewer)
        request.opened = m_viewer(request);
    else if (request.found && m_browserAllowed)
        request.opened = StartBrowser(request.location);
    if (!request.found)
        std::fprintf(stderr, "vantix: help: there is no help page %s in %s\n", page.c_str(),
                     m_folder.string().c_str());
    else if (!request.opened)
        std::fprintf(stderr, "vantix: help: %s is at %s\n", page.c_str(), request.location.c_str());
    m_requests.push_back(std::move(request));
    return m_requests.back().found;
}

void HelpPages::reset()
{
    m_folder = DefaultFolder();
    m_browserAllowed = false;
    m_requests.clear();
}

} // namespace vantix::host::detail
