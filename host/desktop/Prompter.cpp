#include "desktop/Prompter.h"

#include "desktop/UserActions.h"

#include <QFileDialog>
#include <QMessageBox>

namespace vantix::host::desktop
{

namespace
{

QMessageBox::Icon IconOf(MessageBoxType_e type)
{
    switch (type)
    {
    case MessageBoxType_Error:
        return QMessageBox::Critical;
    case MessageBoxType_Warning:
        return QMessageBox::Warning;
    case MessageBoxType_Information:
        return QMessageBox::Information;
    case MessageBoxType_Question:
    case MessageBoxType_YesNo:
        return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

const char* TitleOf(MessageBoxType_e type)
{
    switch (type)
    {
    case MessageBoxType_Error:
        return "Vantix: Error";
    case MessageBoxType_Warning:
        return "Vantix: Warning";
    case MessageBoxType_Information:
        return "Vantix: Information";
    default:
        return "Vantix: Question";
    }
}

int Exec(QDialog& dialog)
{
    AnswersDuringActions(&dialog);
    return dialog.exec();
}

} // namespace

QString FileDialogFilter(const std::string& fileTypeName, const std::string& filter)
{
    const QString all = "All files (*)";
    if (filter.empty() || filter == "*" || filter == "*.*")
        return all;
    const QString type = fileTypeName.empty() ? QString("Matching") : QString::fromStdString(fileTypeName);
    return type + " files (" + QString::fromStdString(filter) + ");;" + all;
}

Prompter::Prompter(QWidget* parent) : m_parent(parent)
{
    setUserPrompter(this);
}

Prompter::~Prompter()
{
    setUserPrompter(nullptr);
}

void Prompter::showMessage(const std::string& text, MessageBoxType_e type)
{
    QMessageBox box(IconOf(type), TitleOf(type), QString::fromStdString(text), QMessageBox::Ok, m_parent);
    Exec(box);
}

bool Prompter::askQuestion(const std::string& text, MessageBoxType_e type)
{
    const bool yesNo = type == MessageBoxType_YesNo;
    const QMessageBox::StandardButton yes = yesNo ? QMessageBox::Yes : QMessageBox::Ok;
    const QMessageBox::StandardButton no = yesNo ? QMessageBox::No : QMessageBox::Cancel;
    QMessageBox box(IconOf(type), TitleOf(type), QString::fromStdString(text), yes | no, m_parent);
    box.setDefaultButton(yes);
    box.setEscapeButton(no);
    Exec(box);
    return box.clickedButton() == box.button(yes);
}

std::optional<std::string> Prompter::askFileName(SelectFileOption_e option, const std::string& fileTypeName,
                                                 const std::string& defaultFileName,
                                                 const std::string& filter)
{
    const bool write = option == SelectFileOption_WriteFile;
    QFileDialog dialog(m_parent, write ? "Save As" : "Open", QString(),
                       FileDialogFilter(fileTypeName, filter));
    // Qt's own dialog rather than the platform's: the same on every desktop, and one a test can drive.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(write ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(write ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (!defaultFileName.empty())
        dialog.selectFile(QString::fromStdString(defaultFileName));
    if (Exec(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().front().toStdString();
}

} // namespace vantix::host::desktop
