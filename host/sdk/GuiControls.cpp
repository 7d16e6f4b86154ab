// VtxGUI: buttons, labels, frames, text and spin fields, toggles, radio boxes, sensitivity and tooltips.
#include "core/Application.h"
#include "core/CallContext.h"
#include "gui/ListEditing.h"
#include "gui/UserInterface.h"

#include <VtxGUI.h>

#include <cstring>
#include <vector>

using vantix::host::detail::Application;
using vantix::host::detail::Call;
using vantix::host::detail::CallContext;
using vantix::host::detail::GuiKind;
using vantix::host::detail::GuiNode;
using vantix::host::detail::GuiPlacement;
using vantix::host::detail::UserInterfaceOf;

namespace
{

// Every control except the menus', which take no tooltip.
constexpr std::initializer_list<GuiKind> Controls = {
    GuiKind::Button, GuiKind::TextField, GuiKind::SpinTextField, GuiKind::List,  GuiKind::OptionMenu,
    GuiKind::Toggle, GuiKind::RadioBox,  GuiKind::Frame,         GuiKind::Label,
};

GuiNode* Add(const CallContext& call, int dialog, GuiKind kind, const GuiPlacement& placement,
             const char* label)
{
    return UserInterfaceOf(call.app()).gui.addControl(call, dialog, kind, placement, label);
}

int IdOf(const GuiNode* node)
{
    return node ? node->state.id : GuiId_None;
}

GuiNode* Require(const CallContext& call, int id, std::initializer_list<GuiKind> kinds)
{
    return UserInterfaceOf(call.app()).gui.require(call, id, kinds);
}

bool HasText(const CallContext& call, const char* text)
{
    if (!text)
        call.refuse("was given no text (null)");
    return text != nullptr;
}

} // namespace

extern "C"
{

    int VtxGUIButtonAdd(int dialog, int x, int y, int width, int height, const char* label,
                        GuiActionCallback_pf callback)
    {
        const CallContext call(Call::GuiButtonAdd);
        GuiNode* button = Add(call, dialog, GuiKind::Button, {x, y, width, height, true}, label);
        if (button)
            button->callbacks.action = callback;
        return IdOf(button);
    }

    int VtxGUILabelAdd(int dialog, int x, int y, const char* text)
    {
        const CallContext call(Call::GuiLabelAdd);
        return IdOf(Add(call, dialog, GuiKind::Label, {x, y, 0, 0, false}, text));
    }

    void VtxGUILabelSetText(int label, const char* text)
    {
        const CallContext call(Call::GuiLabelSetText);
        GuiNode* node = Require(call, label, {GuiKind::Label});
        if (node && HasText(call, text))
            node->state.label = text;
    }

    int VtxGUIFrameAdd(int dialog, int x, int y, int width, int height, const char* label)
    {
        const CallContext call(Call::GuiFrameAdd);
        return IdOf(Add(call, dialog, GuiKind::Frame, {x, y, width, height, true}, label));
    }

    int VtxGUITextFieldAdd(int dialog, int x, int y, int width, int height, GuiTextCallback_pf callback)
    {
        const CallContext call(Call::GuiTextFieldAdd);
        GuiNode* field = Add(call, dialog, GuiKind::TextField, {x, y, width, height, true}, nullptr);
        if (field)
            field->callbacks.text = callback;
        return IdOf(field);
    }

    int VtxGUISpinTextFieldAdd(int dialog, int x, int y, int width, int height,
                               GuiTextCallback_pf valueChangedCallback, GuiActionCallback_pf upCallback,
                               GuiActionCallback_pf downCallback)
    {
        const CallContext call(Call::GuiSpinTextFieldAdd);
        GuiNode* field = Add(call, dialog, GuiKind::SpinTextField, {x, y, width, height, true}, nullptr);
        if (field)
        {
            field->callbacks.text = valueChangedCallback;
            field->callbacks.up = upCallback;
            field->callbacks.down = downCallback;
        }
        return IdOf(field);
    }

    void VtxGUITextFieldSetString(int textField, const char* text)
    {
        const CallContext call(Call::GuiTextFieldSetString);
        GuiNode* field = Require(call, textField, {GuiKind::TextField, GuiKind::SpinTextField});
        if (field && HasText(call, text))
            field->state.text = text;
    }

    char* VtxGUITextFieldGetString(int textField)
    {
        const CallContext call(Call::GuiTextFieldGetString);
        Application& app = call.app();
        const GuiNode* field = Require(call, textField, {GuiKind::TextField, GuiKind::SpinTextField});
        if (!field)
            return nullptr;
        const std::string& text = field->state.text;
        char* copy = app.strings().allocate(static_cast<int>(text.size()));
        if (copy)
            std::memcpy(copy, text.c_str(), text.size() + 1);
        return copy;
    }

    int VtxGUIToggleAdd(int dialog, int x, int y, int width, int height, const char* label,
                        GuiValueCallback_pf callback)
    {
        const CallContext call(Call::GuiToggleAdd);
        GuiNode* toggle = Add(call, dialog, GuiKind::Toggle, {x, y, width, height, true}, label);
        if (toggle)
            toggle->callbacks.value = callback;
        return IdOf(toggle);
    }

    Boolean VtxGUIToggleGet(int toggle)
    {
        const CallContext call(Call::GuiToggleGet);
        const GuiNode* node = Require(call, toggle, {GuiKind::Toggle});
        return node && node->state.on ? TRUE : FALSE;
    }

    void VtxGUIToggleSet(int toggle, Boolean on)
    {
        const CallContext call(Call::GuiToggleSet);
        if (GuiNode* node = Require(call, toggle, {GuiKind::Toggle}))
            node->state.on = on != FALSE;
    }

    int VtxGUIRadioBoxAdd(int dialog, int x, int y, int width, int height, const char* label1,
                          const char* label2, const char* label3, const char* label4, const char* label5,
                          GuiValueCallback_pf callback)
    {
        const CallContext call(Call::GuiRadioBoxAdd);
        const char* const given[] = {label1, label2, label3, label4, label5};
        std::vector<std::string> labels;
        bool ended = false;
        for (const char* label : given)
        {
            if (label && ended)
            {
                call.refuse("was given a radio button label after a missing one");
                return GuiId_None;
            }
            ended = ended || !label;
            if (label)
                labels.emplace_back(label);
        }
        if (labels.empty())
        {
            call.refuse("was given no radio button label");
            return GuiId_None;
        }
        GuiNode* radioBox = Add(call, dialog, GuiKind::RadioBox, {x, y, width, height, true}, nullptr);
        if (radioBox)
        {
            radioBox->state.items = std::move(labels);
            radioBox->state.choice = 1;
            radioBox->callbacks.value = callback;
        }
        return IdOf(radioBox);
    }

    int VtxGUIRadioBoxGetToggle(int radioBox)
    {
        const CallContext call(Call::GuiRadioBoxGetToggle);
        const GuiNode* node = Require(call, radioBox, {GuiKind::RadioBox});
        return node ? node->state.choice : 0;
    }

    void VtxGUIRadioBoxSetToggle(int radioBox, int position)
    {
        const CallContext call(Call::GuiRadioBoxSetToggle);
        GuiNode* node = Require(call, radioBox, {GuiKind::RadioBox});
        if (!node)
            return;
        if (!vantix::host::detail::IsPosition(node->state, position))
        {
            call.refuse("was given button " + std::to_string(position) + " of a radio box of " +
                        std::to_string(node->state.items.size()));
            return;
        }
        node->state.choice = position;
    }

    void VtxGUISetSensitivity(int control, Boolean sensitive)
    {
        const CallContext call(Call::GuiSetSensitivity);
        GuiNode* node = Require(call, control,
                                {GuiKind::Button, GuiKind::TextField, GuiKind::SpinTextField, GuiKind::List,
                                 GuiKind::OptionMenu, GuiKind::Toggle, GuiKind::RadioBox, GuiKind::Frame,
                                 GuiKind::Label, GuiKind::MenuBar, GuiKind::Menu, GuiKind::MenuItem,
                                 GuiKind::MenuToggle, GuiKind::MenuSeparator});
        if (node)
            node->state.sensitive = sensitive != FALSE;
    }

    void VtxGUISetToolTip(int control, const char* text)
    {
        const CallContext call(Call::GuiSetToolTip);
        GuiNode* node = Require(call, control, Controls);
        if (node && HasText(call, text))
            node->state.toolTip = text;
    }

} // extern "C"
