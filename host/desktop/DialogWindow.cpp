#include "desktop/DialogWindow.h"

#include "desktop/ControlWidget.h"
#include "desktop/DialogMenuBar.h"
#include "desktop/DialogUnits.h"
#include "desktop/UserActions.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace vantix::host::desktop
{

namespace
{

using Press = void (*)(int);

// The dialog's own buttons, in the model's words, with the entry point each one presses.
const std::pair<const char*, std::pair<QDialogButtonBox::StandardButton, Press>> DialogButtons[] = {
    {"OK", {QDialogButtonBox::Ok, &pressOk}},
    {"Apply", {QDialogButtonBox::Apply, &pressApply}},
    {"Cancel", {QDialogButtonBox::Cancel, &pressCancel}},
    {"Close", {QDialogButtonBox::Close, &pressClose}},
    {"Help", {QDialogButtonBox::Help, &pressHelp}},
};

} // namespace

DialogWindow::DialogWindow(int dialog, QWidget* parent)
    : QDialog(parent), m_id(dialog), m_area(new QWidget(this)), m_buttons(new QDialogButtonBox(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize); // the model's layout has one size
    layout->addWidget(m_area);
    layout->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::clicked, this,
            [this](QAbstractButton* button)
            {
                const QDialogButtonBox::StandardButton which = m_buttons->standardButton(button);
                for (const auto& [name, entry] : DialogButtons)
                    if (entry.first == which)
                        RunUserAction([press = entry.second, id = m_id] { press(id); });
            });
}

// The controls go before the widgets they drive, so that none of them hears of a widget going away.
DialogWindow::~DialogWindow() = default;

void DialogWindow::sync(const GuiElement& dialog)
{
    if (!dialog.up)
    {
        if (isVisible())
            hide();
        return;
    }
    if (m_first || dialog.label != m_shown.label)
        setWindowTitle(QString::fromStdString(dialog.label));
    if (m_first || dialog.buttons != m_shown.buttons)
        showButtons(dialog.buttons);
    if (m_first || dialog.width != m_shown.width || dialog.height != m_shown.height)
        m_area->setFixedSize(DialogPixels(dialog.width), DialogPixels(dialog.height));
    if (dialog.menuBar != GuiId_None)
    {
        if (!m_menuBar)
        {
            m_menuBar = std::make_unique<DialogMenuBar>(this);
            layout()->setMenuBar(m_menuBar->bar()); // the controls start below it
        }
        m_menuBar->sync(dialog.menuBar);
    }
    syncControls(dialog.children);
    m_shown = dialog;
    m_first = false;
    if (!isVisible())
    {
        // The model's launch has returned already: a modal dialog is shown, not run in a loop of its own.
        setWindowModality(dialog.modal ? Qt::ApplicationModal : Qt::NonModal);
        show();
    }
}

QWidget* DialogWindow::widget(int control) const
{
    const auto found = m_controls.find(control);
    return found == m_controls.end() || !found->second ? nullptr : found->second->widget();
}

QAction* DialogWindow::action(int menuEntry) const
{
    return m_menuBar ? m_menuBar->action(menuEntry) : nullptr;
}

void DialogWindow::closeEvent(QCloseEvent* event)
{
    event->ignore(); // the window goes down when the model's dialog does
    RunUserAction([id = m_id] { closeDialog(id); });
}

void DialogWindow::reject()
{
    const bool cancels = std::count(m_shown.buttons.begin(), m_shown.buttons.end(), "Cancel") > 0;
    RunUserAction([id = m_id, cancels] { cancels ? pressCancel(id) : closeDialog(id); });
}

void DialogWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->accept();
    else
        QDialog::keyPressEvent(event);
}

void DialogWindow::showButtons(const std::vector<std::string>& buttons)
{
    m_buttons->clear();
    for (const auto& [name, entry] : DialogButtons)
        if (std::find(buttons.begin(), buttons.end(), name) != buttons.end())
            m_buttons->addButton(entry.first)->setAutoDefault(false);
    m_buttons->setVisible(!buttons.empty());
}

void DialogWindow::syncControls(const std::vector<int>& controls)
{
    for (const int id : controls)
    {
        const GuiElement control = guiElement(id);
        auto found = m_controls.find(id);
        if (found == m_controls.end())
            found = m_controls.emplace(id, ControlWidget::Make(control, m_area)).first;
        if (found->second)
            found->second->sync(control);
    }
}

} // namespace vantix::host::desktop
