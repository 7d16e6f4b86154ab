// One control of a dialog drawn by a Qt widget: it shows what the host's GUI model holds, and passes what the
// person does with it to the host's entry points, one user action each.
#pragma once

#include <vantix/host/Gui.h>

#include <QObject>

#include <functional>
#include <memory>

class QWidget;

namespace vantix::host::desktop
{

class ControlWidget : public QObject
{
public:
    // The widget for the control's kind, made inside `area` (which owns it); null for an element that is
    // not a control of a dialog.
    static std::unique_ptr<ControlWidget> Make(const GuiElement& control, QWidget* area);

    ControlWidget(const ControlWidget&) = delete;
    ControlWidget& operator=(const ControlWidget&) = delete;

    // Brings the widget in line with the model. Touches only what differs from what the widget shows, with
    // the widget's signals blocked, so that it never takes the model's change for the person's.
    void sync(const GuiElement& control);
    // The widget the person types into or clicks: a spin field's line edit, the box of a radio box.
    virtual QWidget* widget() const { return m_root; }

protected:
    ControlWidget(const GuiElement& control, QWidget* root);

    // Shows what the model holds where it differs from `shown`, what the widget shows (`first`: nothing
    // shown yet). Geometry, tooltip and sensitivity are done already.
    virtual void show(const GuiElement& now, const GuiElement& shown, bool first) = 0;
    // What the person changed on the widget, written into `shown` before the action runs, so that the
    // next sync puts the widget back in line when the host refuses or the add-on answers otherwise.
    virtual void readBack(GuiElement& shown) const { (void)shown; }
    // Runs the person's action on this control as a user action.
    void act(const std::function<void()>& action);

    const int m_id;

private:
    QWidget* const m_root; // the area owns it
    GuiElement m_shown;
    bool m_first = true;
};

// The kinds of control, each in its own file.
std::unique_ptr<ControlWidget> MakeTextField(const GuiElement& control, QWidget* area);
std::unique_ptr<ControlWidget> MakeSpinField(const GuiElement& control, QWidget* area);
std::unique_ptr<ControlWidget> MakeList(const GuiElement& control, QWidget* area);
std::unique_ptr<ControlWidget> MakeRadioBox(const GuiElement& control, QWidget* area);

} // namespace vantix::host::desktop
