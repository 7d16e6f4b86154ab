// The host's own API for reading its user interface back: the GUI model, the host menus' options, the
// messages and file dialogs with their scripts, help requests and host arrays.
#include "core/Application.h"
#include "gui/UserInterface.h"

#include <vantix/host/Gui.h>

#include <cctype>
#include <stdexcept>
#include <utility>

namespace vantix::host
{

namespace
{

detail::UserInterface& Ui()
{
    return detail::UserInterfaceOf(detail::Application::instance());
}

bool HasCallback(const detail::GuiCallbacks& callbacks)
{
    return callbacks.action || callbacks.text || callbacks.value || callbacks.up || callbacks.down;
}

bool LabelMatches(const std::string& label, const std::string& wanted)
{
    return label == wanted || readableLabel(label) == wanted;
}

int TheOnlyOne(const std::vector<int>& matches, const std::string& what)
{
    if (matches.empty())
        throw std::invalid_argument("there is no " + what);
    if (matches.size() > 1)
        throw std::invalid_argument("there is more than one " + what);
    return matches.front();
}

} // namespace

std::vector<int> dialogs()
{
    return Ui().gui.dialogs();
}

GuiElement guiElement(int id)
{
    const detail::GuiNode* node = Ui().gui.find(id);
    if (!node)
        throw std::invalid_argument("the host never gave out the identifier " + std::to_string(id));
    GuiElement element = node->state;
    element.hasCallback = element.kind != GuiKind::Dialog && HasCallback(node->callbacks);
    return element;
}

std::string readableLabel(const std::string& label)
{
    std::string readable;
    bool pendingBlank = false;
    for (std::size_t i = 0; i < label.size(); ++i)
    {
        const char c = label[i];
        if (std::isspace(static_cast<unsigned char>(c)))
        {
            pendingBlank = !readable.empty();
            continue;
        }
        if (c == '&' && (i + 1 == label.size() || label[i + 1] != '&'))
            continue; // a mnemonic mark
        if (c == '&')
            ++i; // "&&" stands for one '&'
        if (pendingBlank)
            readable += ' ';
        pendingBlank = false;
        readable += c;
    }
    return readable;
}

int findDialog(const std::string& title)
{
    std::vector<int> matches;
    for (const int id : Ui().gui.dialogs())
        if (LabelMatches(Ui().gui.find(id)->state.label, title))
            matches.push_back(id);
    return TheOnlyOne(matches, "dialog titled \"" + title + "\"");
}

int findControl(int dialog, const std::string& label)
{
    if (guiElement(dialog).kind != GuiKind::Dialog)
        throw std::invalid_argument(std::to_string(dialog) + " is not a dialog");
    std::vector<int> matches;
    for (const int id : Ui().gui.elementsOf(dialog))
        if (LabelMatches(Ui().gui.find(id)->state.label, label))
            matches.push_back(id);
    return TheOnlyOne(matches, "control labelled \"" + label + "\" in dialog " + std::to_string(dialog));
}

std::vector<HostMenuOption> hostMenuOptions()
{
    std::vector<HostMenuOption> options;
    for (const detail::HostMenuEntry& entry : Ui().hostMenus.entries())
        options.push_back(entry.option);
    return options;
}

std::vector<UserMessage> userMessages()
{
    return Ui().prompts.log();
}

std::vector<std::string> errorMessages()
{
    std::vector<std::string> texts;
    for (const UserMessage& message : Ui().prompts.log())
        if (message.kind == UserMessage::Kind::ErrorMessage)
            texts.push_back(message.text);
    return texts;
}

void clearUserMessages()
{
    Ui().prompts.clearLog();
}

void scriptAnswer(bool yes)
{
    Ui().prompts.scriptAnswer(yes);
}

void scriptFileName(const std::string& name)
{
    Ui().prompts.scriptFileName(name);
}

void scriptFileCancel()
{
    Ui().prompts.scriptFileCancel();
}

std::size_t pendingScriptedAnswers()
{
    return Ui().prompts.pendingScripts();
}

void setUserPrompter(UserPrompter* prompter)
{
    Ui().prompts.setPrompter(prompter);
}

std::vector<HelpRequest> helpRequests()
{
    return Ui().help.requests();
}

void setHelpFolder(const std::string& folder)
{
    Ui().help.setFolder(folder);
}

std::string helpFolder()
{
    return Ui().help.folder().string();
}

void setHelpBrowserAllowed(bool allowed)
{
    Ui().help.allowBrowser(allowed);
}

void setHelpViewer(HelpViewer viewer)
{
    Ui().help.setViewer(std::move(viewer));
}

long outstandingHostArrays()
{
    return Ui().arrays.outstanding();
}

} // namespace vantix::host
