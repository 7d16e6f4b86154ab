// Text fields and spin fields: the text the person types reaches the host when confirmed with Return, or
// when the focus leaves a field whose text is not what the model shows.
#include "desktop/ControlWidget.h"

#include "desktop/DialogUnits.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace vantix::host::desktop
{

namespace
{

class TextFieldControl : public ControlWidget
{
public:
    TextFieldControl(const GuiElement& control, QWidget* root, QLineEdit* edit)
        : ControlWidget(control, root), m_edit(edit)
    {
        connect(m_edit, &QLineEdit::returnPressed, this, [this] { confirm(); });
        connect(m_edit, &QLineEdit::editingFinished, this,
                [this]
                {
                    // The focus also leaves a field when its window goes down: nothing was confirmed then.
                    if (m_edit->isVisible() && m_edit->text().toStdString() != guiElement(m_id).text)
                        confirm();
                });
    }

    QWidget* widget() const override { return m_edit; }

protected:
    void show(const GuiElement& now, const GuiElement& shown, bool first) override
    {
        if (first || now.text != shown.text)
            m_edit->setText(QString::fromStdString(now.text));
    }
    void readBack(GuiElement& shown) const override { shown.text = m_edit->text().toStdString(); }

private:
    void confirm()
    {
        act([id = m_id, text = m_edit->text().toStdString()] { enterText(id, text); });
    }

    QLineEdit* m_edit;
};

// The arrows stand at the field's right end, one above the other, inside the field's rectangle.
class SpinFieldControl : public TextFieldControl
{
public:
    SpinFieldControl(const GuiElement& control, QWidget* box, QLineEdit* edit)
        : TextFieldControl(control, box, edit)
    {
        auto* arrows = new QVBoxLayout;
        arrows->setSpacing(0);
        for (const bool up : {true, false})
        {
            auto* arrow = new QToolButton(box);
            arrow->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
            arrow->setAutoRepeat(true); // held down, it steps on as a spin box does
            arrow->setFocusPolicy(Qt::NoFocus);
            arrow->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
            arrow->setFixedWidth(DialogPixels(100));
            arrows->addWidget(arrow);
            connect(arrow, &QToolButton::clicked, this,
                    [this, up] { act([id = m_id, up] { up ? spinUp(id) : spinDown(id); }); });
        }
        auto* row = new QHBoxLayout(box);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(1);
        row->addWidget(edit);
        row->addLayout(arrows);
    }
};

} // namespace

std::unique_ptr<ControlWidget> MakeTextField(const GuiElement& control, QWidget* area)
{
    auto* edit = new QLineEdit(area);
    return std::make_unique<TextFieldControl>(control, edit, edit);
}

std::unique_ptr<ControlWidget> MakeSpinField(const GuiElement& control, QWidget* area)
{
    auto* box = new QWidget(area);
    return std::make_unique<SpinFieldControl>(control, box, new QLineEdit(box));
}

} // namespace vantix::host::desktop
