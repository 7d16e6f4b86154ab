#include "desktop/ControlWidget.h"

#include "desktop/DialogUnits.h"
#include "desktop/UserActions.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QShortcutEvent>
#include <QSignalBlocker>

namespace vantix::host::desktop
{

namespace
{

// A button whose mnemonic presses it at once. Qt's own shows the button held down for a tenth of a second
// first, which only delays the work the key asks for: an animation's first frame came that much later.
class PromptButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous())
            return QPushButton::event(event);
        setFocus(Qt::ShortcutFocusReason);
        click();
        return true;
    }
};

class ButtonControl : public ControlWidget
{
public:
    ButtonControl(const GuiElement& control, QPushButton* button)
        : ControlWidget(control, button), m_button(button)
    {
        // Return in a text field confirms the text and nothing else: no button of a dialog is its default.
        m_button->setAutoDefault(false);
        connect(m_button, &QPushButton::clicked, this, [this] { act([id = m_id] { pressButton(id); }); });
    }

private:
    void show(const GuiElement& now, const GuiElement& shown, bool first) override
    {
        if (first || now.label != shown.label)
            m_button->setText(MnemonicText(now.label));
    }

    QPushButton* m_button;
};

class ToggleControl : public ControlWidget
{
public:
    ToggleControl(const GuiElement& control, QCheckBox* box) : ControlWidget(control, box), m_box(box)
    {
        connect(m_box, &QCheckBox::clicked, this, [this] { act([id = m_id] { clickToggle(id); }); });
    }

private:
    void show(const GuiElement& now, const GuiElement& shown, bool first) override
    {
        if (first || now.label != shown.label)
            m_box->setText(MnemonicText(now.label));
        if (first || now.on != shown.on)
            m_box->setChecked(now.on);
    }
    void readBack(GuiElement& shown) const override { shown.on = m_box->isChecked(); }

    QCheckBox* m_box;
};

class OptionMenuControl : public ControlWidget
{
public:
    OptionMenuControl(const GuiElement& control, QComboBox* menu) : ControlWidget(control, menu), m_menu(menu)
    {
        connect(m_menu, &QComboBox::activated, this,
                [this](int index) { act([id = m_id, index] { chooseOption(id, index + 1); }); });
    }

private:
    void show(const GuiElement& now, const GuiElement& shown, bool first) override
    {
        const bool newItems = first || now.items != shown.items;
        if (newItems)
        {
            m_menu->clear();
            for (const std::string& item : now.items)
                m_menu->addItem(QString::fromStdString(item));
        }
        if (newItems || now.choice != shown.choice)
            m_menu->setCurrentIndex(now.choice - 1);
    }
    void readBack(GuiElement& shown) const override { shown.choice = m_menu->currentIndex() + 1; }

    QComboBox* m_menu;
};

// A frame only groups the controls drawn over it: they are the dialog's, not the frame's.
class FrameControl : public ControlWidget
{
public:
    FrameControl(const GuiElement& control, QGroupBox* box) : ControlWidget(control, box), m_box(box)
    {
        m_box->lower();
    }

private:
    void show(const GuiElement& now, const GuiElement& shown, bool first) override
    {
        if (first || now.label != shown.label)
            m_box->setTitle(MnemonicText(now.label));
    }

    QGroupBox* m_box;
};

// A label has a place only: it takes the size of its text.
class LabelControl : public ControlWidget
{
public:
    LabelControl(const GuiElement& control, QLabel* label) : ControlWidget(control, label), m_label(label) {}

private:
    void show(const GuiElement& now, const GuiElement& shown, bool first) override
    {
        if (!first && now.label == shown.label)
            return;
        m_label->setText(PlainText(now.label));
        m_label->adjustSize();
    }

    QLabel* m_label;
};

} // namespace

std::unique_ptr<ControlWidget> ControlWidget::Make(const GuiElement& control, QWidget* area)
{
    switch (control.kind)
    {
    case GuiKind::Button:
        return std::make_unique<ButtonControl>(control, new PromptButton(area));
    case GuiKind::TextField:
        return MakeTextField(control, area);
    case GuiKind::SpinTextField:
        return MakeSpinField(control, area);
    case GuiKind::List:
        return MakeList(control, area);
    case GuiKind::OptionMenu:
        return std::make_unique<OptionMenuControl>(control, new QComboBox(area));
    case GuiKind::Toggle:
        return std::make_unique<ToggleControl>(control, new QCheckBox(area));
    case GuiKind::RadioBox:
        return MakeRadioBox(control, area);
    case GuiKind::Frame:
        return std::make_unique<FrameControl>(control, new QGroupBox(area));
    case GuiKind::Label:
        return std::make_unique<LabelControl>(control, new QLabel(area));
    default:
        return nullptr; // dialogs and menus have windows and menu bars of their own
    }
}

ControlWidget::ControlWidget(const GuiElement& control, QWidget* root) : m_id(control.id), m_root(root) {}

void ControlWidget::sync(const GuiElement& control)
{
    const QSignalBlocker blocker(widget());
    const QSignalBlocker rootBlocker(m_root);
    const bool first = m_first;
    if (first)
        m_root->show(); // a control the add-on adds to a dialog already up shows as well
    if (first || control.x != m_shown.x || control.y != m_shown.y || control.width != m_shown.width ||
        control.height != m_shown.height)
    {
        const QRect rect = DialogRect(control);
        if (control.kind == GuiKind::Label)
            m_root->move(rect.topLeft());
        else
            m_root->setGeometry(rect);
    }
    if (first || control.toolTip != m_shown.toolTip)
        m_root->setToolTip(QString::fromStdString(control.toolTip));
    if (first || control.sensitive != m_shown.sensitive)
        m_root->setEnabled(control.sensitive);
    show(control, m_shown, first);
    m_shown = control;
    m_first = false;
}

void ControlWidget::act(const std::function<void()>& action)
{
    readBack(m_shown);
    RunUserAction(action);
}

} // namespace vantix::host::desktop
