// VtxGUI: lists and option menus.
#include "core/Application.h"
#include "core/CallContext.h"
#include "gui/ListEditing.h"
#include "gui/UserInterface.h"

#include <VtxGUI.h>

#include <algorithm>
#include <vector>

using vantix::host::detail::Application;
using vantix::host::detail::Call;
using vantix::host::detail::CallContext;
using vantix::host::detail::GuiKind;
using vantix::host::detail::GuiNode;
using vantix::host::detail::GuiPlacement;
using vantix::host::detail::IsPosition;
using vantix::host::detail::UserInterfaceOf;

namespace
{

GuiNode* Require(const CallContext& call, int id, GuiKind kind)
{
    return UserInterfaceOf(call.app()).gui.require(call, id, {kind});
}

bool HasText(const CallContext& call, const char* text)
{
    if (!text)
        call.refuse("was given no text (null)");
    return text != nullptr;
}

bool IsEntry(const CallContext& call, const GuiNode& control, int position)
{
    if (IsPosition(control.state, position))
        return true;
    call.refuse("was given position " + std::to_string(position) + " of " +
                std::string(vantix::host::detail::DescribeKind(control.state.kind)) + " of " +
                std::to_string(control.state.items.size()) + " entries");
    return false;
}

} // namespace

extern "C"
{

    int VtxGUIListAdd(int dialog, int x, int y, int width, int height, Boolean multiSelection,
                      GuiValueCallback_pf callback)
    {
        const CallContext call(Call::GuiListAdd);
        GuiNode* list =
            UserInterfaceOf(call.app())
                .gui.addControl(call, dialog, GuiKind::List, {x, y, width, height, true}, nullptr);
        if (!list)
            return GuiId_None;
        list->state.multiSelection = multiSelection != FALSE;
        list->callbacks.value = callback;
        return list->state.id;
    }

    int VtxGUIListGetItemCount(int list)
    {
        const CallContext call(Call::GuiListGetItemCount);
        const GuiNode* node = Require(call, list, GuiKind::List);
        return node ? static_cast<int>(node->state.items.size()) : 0;
    }

    void VtxGUIListAppendItem(int list, const char* item)
    {
        const CallContext call(Call::GuiListAppendItem);
        GuiNode* node = Require(call, list, GuiKind::List);
        if (node && HasText(call, item))
            node->state.items.emplace_back(item);
    }

    void VtxGUIListReplaceItem(int list, const char* item, int position)
    {
        const CallContext call(Call::GuiListReplaceItem);
        GuiNode* node = Require(call, list, GuiKind::List);
        if (node && HasText(call, item) && IsEntry(call, *node, position))
            node->state.items[static_cast<std::size_t>(position - 1)] = item;
    }

    void VtxGUIListDeleteItemAtPos(int list, int position)
    {
        const CallContext call(Call::GuiListDeleteItemAtPos);
        GuiNode* node = Require(call, list, GuiKind::List);
        if (node && IsEntry(call, *node, position))
            vantix::host::detail::DeleteEntry(node->state, position);
    }

    void VtxGUIListDeleteAllItems(int list)
    {
        const CallContext call(Call::GuiListDeleteAllItems);
        if (GuiNode* node = Require(call, list, GuiKind::List))
            vantix::host::detail::DeleteAllEntries(node->state);
    }

    void VtxGUIListSetSelectedItem(int list, int position)
    {
        const CallContext call(Call::GuiListSetSelectedItem);
        GuiNode* node = Require(call, list, GuiKind::List);
        if (node && IsEntry(call, *node, position))
            vantix::host::detail::SelectExactly(node->state, {position});
    }

    void VtxGUIListSetSelectedItems(int list, const int* positions, int count)
    {
        const CallContext call(Call::GuiListSetSelectedItems);
        GuiNode* node = Require(call, list, GuiKind::List);
        if (!node)
            return;
        if (count < 0 || (count > 0 && !positions))
        {
            call.refuse("was given " + std::to_string(count) + " positions" +
                        (positions ? "" : " and no array"));
            return;
        }
        const std::vector<int> wanted(positions, positions + count);
        for (const int position : wanted)
            if (!IsEntry(call, *node, position))
                return;
        std::vector<int> distinct = wanted;
        std::sort(distinct.begin(), distinct.end());
        distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
        if (!node->state.multiSelection && distinct.size() > 1)
        {
            call.refuse("was given " + std::to_string(distinct.size()) +
                        " entries to select in a single-selection list");
            return;
        }
        node->state.selected = std::move(distinct);
    }

    void VtxGUIListGetSelectedItems(int list, int** positions, int* count)
    {
        const CallContext call(Call::GuiListGetSelectedItems);
        Application& app = call.app();
        if (!positions || !count)
        {
            call.refuse("was given nowhere to put the selection");
            return;
        }
        *positions = nullptr;
        *count = 0;
        const GuiNode* node = Require(call, list, GuiKind::List);
        if (!node)
            return;
        *positions = UserInterfaceOf(app).arrays.handOut(node->state.selected);
        *count = static_cast<int>(node->state.selected.size());
    }

    void VtxGUIListDeselectAllItems(int list)
    {
        const CallContext call(Call::GuiListDeselectAllItems);
        if (GuiNode* node = Require(call, list, GuiKind::List))
            node->state.selected.clear();
    }

    int VtxGUIOptionMenuAdd(int dialog, int x, int y, int width, int height, const char* itemText,
                            GuiValueCallback_pf callback)
    {
        const CallContext call(Call::GuiOptionMenuAdd);
        GuiNode* menu =
            UserInterfaceOf(call.app())
                .gui.addControl(call, dialog, GuiKind::OptionMenu, {x, y, width, height, true}, nullptr);
        if (!menu)
            return GuiId_None;
        for (std::string& item : vantix::host::detail::SplitOptions(itemText ? itemText : ""))
            vantix::host::detail::AppendOption(menu->state, std::move(item));
        menu->callbacks.value = callback;
        return menu->state.id;
    }

    void VtxGUIOptionMenuAppendItem(int optionMenu, const char* item)
    {
        const CallContext call(Call::GuiOptionMenuAppendItem);
        GuiNode* node = Require(call, optionMenu, GuiKind::OptionMenu);
        if (node && HasText(call, item))
            vantix::host::detail::AppendOption(node->state, item);
    }

    void VtxGUIOptionMenuDeleteAllItems(int optionMenu)
    {
        const CallContext call(Call::GuiOptionMenuDeleteAllItems);
        if (GuiNode* node = Require(call, optionMenu, GuiKind::OptionMenu))
            vantix::host::detail::DeleteAllEntries(node->state);
    }

    int VtxGUIOptionMenuGet(int optionMenu)
    {
        const CallContext call(Call::GuiOptionMenuGet);
        const GuiNode* node = Require(call, optionMenu, GuiKind::OptionMenu);
        return node ? node->state.choice : 0;
    }

    void VtxGUIOptionMenuSet(int optionMenu, int position)
    {
        const CallContext call(Call::GuiOptionMenuSet);
        GuiNode* node = Require(call, optionMenu, GuiKind::OptionMenu);
        if (node && IsEntry(call, *node, position))
            node->state.choice = position;
    }

} // extern "C"
