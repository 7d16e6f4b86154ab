// The person at the desktop answers the host's messages, questions and file dialogs in real dialogs. They
// are modal, and they take input even while an action runs: the add-on asks in the middle of its work.
#pragma once

#include <vantix/host/Gui.h>

#include <QString>

class QWidget;

namespace vantix::host::desktop
{

class Prompter : public UserPrompter
{
public:
    // The dialogs open over the parent. The prompter answers the host while it lives.
    explicit Prompter(QWidget* parent);
    ~Prompter() override;
    Prompter(const Prompter&) = delete;
    Prompter& operator=(const Prompter&) = delete;

    void showMessage(const std::string& text, MessageBoxType_e type) override;
    bool askQuestion(const std::string& text, MessageBoxType_e type) override;
    std::optional<std::string> askFileName(SelectFileOption_e option, const std::string& fileTypeName,
                                           const std::string& defaultFileName,
                                           const std::string& filter) override;

private:
    QWidget* m_parent;
};

// The file dialog's filter for the host's "*.ext" filters: "Key Frame files (*.keyframe);;All files (*)".
QString FileDialogFilter(const std::string& fileTypeName, const std::string& filter);

} // namespace vantix::host::desktop
