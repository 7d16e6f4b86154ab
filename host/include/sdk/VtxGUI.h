// The Vantix GUI interface: the dialogs, controls and menus an add-on builds in the host's user interface.
//
// Every dialog, control and menu is known by the identifier the host hands out when it is made: a positive
// int. -1 (GuiId_MainWindow) stands for the host's own window as a dialog's parent; -2 (GuiId_None) is never
// handed out, so an add-on can keep it for "not built". An identifier the host never gave out, or one of the
// wrong kind, and a position out of range are protocol errors the host reports; the call then does nothing
// and answers 0, FALSE or null.
//
// Positions of list and option menu entries and of radio buttons count from 1. Positions and sizes are in
// the host's dialog units, x to the right and y down from the dialog's top left corner.
//
// Callbacks are called only for what the user does (press, type and confirm, choose, close); what an
// add-on sets through these functions never calls one. They are called on the user-interface thread, after
// the control shows the user's change.
#pragma once

#include <VtxUtil.h>

enum GuiId_e
{
    GuiId_MainWindow = -1,
    GuiId_None = -2
};

// A button, a menu item or toggle, a spin field's arrows, a dialog's own buttons and its initialisation.
typedef void (*GuiActionCallback_pf)(void);
// A text field or a spin field whose text the user confirmed; the callback gets the text and answers
// nonzero when it accepts it.
typedef int (*GuiTextCallback_pf)(const char* text);
// A list (the position the user clicked), an option menu (the position chosen), a radio box (the button
// chosen) or a toggle (1 on, 0 off).
typedef void (*GuiValueCallback_pf)(const int* value);

extern "C"
{

    // ---- Dialogs ------------------------------------------------------------------------------------------
    // A dialog, down until launched. parentDialog is a dialog of an add-on or GuiId_MainWindow. A modeless
    // dialog has a Close button when it has a close callback; a modal one has OK, Apply and Cancel buttons
    // for the callbacks given; either has a Help button with a help callback. The host calls initCallback
    // each time the dialog comes up. Pressing a dialog's button, or closing its window (the close callback of
    // a modeless dialog, the cancel callback of a modal one), calls the callback, which decides whether the
    // dialog goes down (VtxGUIDialogDrop); without such a callback, closing the window takes it down.
    // Answers GuiId_None when refused.
    VTX_SDK_API int VtxGUIDialogCreateModeless(int parentDialog, int width, int height, const char* title,
                                               GuiActionCallback_pf initCallback,
                                               GuiActionCallback_pf closeCallback,
                                               GuiActionCallback_pf helpCallback);
    VTX_SDK_API int VtxGUIDialogCreateModal(int parentDialog, int width, int height, const char* title,
                                            GuiActionCallback_pf initCallback,
                                            GuiActionCallback_pf okCallback,
                                            GuiActionCallback_pf applyCallback,
                                            GuiActionCallback_pf cancelCallback,
                                            GuiActionCallback_pf helpCallback);
    // Brings a dialog up and calls its init callback; a dialog that is up already only comes to the front.
    // The call returns at once, also for a modal dialog, which from then on takes all the user's input
    // until it goes down.
    VTX_SDK_API void VtxGUIDialogLaunch(int dialog);
    // Takes a dialog down (nothing happens for one that is down). Its callbacks are not called.
    VTX_SDK_API void VtxGUIDialogDrop(int dialog);
    VTX_SDK_API Boolean VtxGUIDialogIsUp(int dialog);

    // ---- Controls -----------------------------------------------------------------------------------------
    // Every Add function takes the dialog first and answers the control's identifier.
    VTX_SDK_API int VtxGUIButtonAdd(int dialog, int x, int y, int width, int height, const char* label,
                                    GuiActionCallback_pf callback);
    // A static text, as wide as its text.
    VTX_SDK_API int VtxGUILabelAdd(int dialog, int x, int y, const char* text);
    VTX_SDK_API void VtxGUILabelSetText(int label, const char* text);
    // A box with a title drawn around other controls.
    VTX_SDK_API int VtxGUIFrameAdd(int dialog, int x, int y, int width, int height, const char* label);

    // A one-line text field, empty at first.
    VTX_SDK_API int VtxGUITextFieldAdd(int dialog, int x, int y, int width, int height,
                                       GuiTextCallback_pf callback);
    // A text field with up and down arrows; the arrows only call their callbacks, which set the text.
    VTX_SDK_API int VtxGUISpinTextFieldAdd(int dialog, int x, int y, int width, int height,
                                           GuiTextCallback_pf valueChangedCallback,
                                           GuiActionCallback_pf upCallback,
                                           GuiActionCallback_pf downCallback);
    // Both kinds of text field.
    VTX_SDK_API void VtxGUITextFieldSetString(int textField, const char* text);
    // The field's text in a host string, which the caller releases with VtxUtilStringDealloc.
    VTX_SDK_API char* VtxGUITextFieldGetString(int textField);

    VTX_SDK_API int VtxGUIToggleAdd(int dialog, int x, int y, int width, int height, const char* label,
                                    GuiValueCallback_pf callback);
    VTX_SDK_API Boolean VtxGUIToggleGet(int toggle);
    VTX_SDK_API void VtxGUIToggleSet(int toggle, Boolean on);

    // One to five radio buttons, the labels given before the first null; button 1 is chosen at first.
    VTX_SDK_API int VtxGUIRadioBoxAdd(int dialog, int x, int y, int width, int height, const char* label1,
                                      const char* label2, const char* label3, const char* label4,
                                      const char* label5, GuiValueCallback_pf callback);
    VTX_SDK_API int VtxGUIRadioBoxGetToggle(int radioBox);
    VTX_SDK_API void VtxGUIRadioBoxSetToggle(int radioBox, int position);

    // Greys a control or a menu entry out (FALSE) or makes it usable again (TRUE).
    VTX_SDK_API void VtxGUISetSensitivity(int control, Boolean sensitive);
    VTX_SDK_API void VtxGUISetToolTip(int control, const char* text);

    // ---- Lists --------------------------------------------------------------------------------------------
    // A list of texts in which the user selects one entry, or several when multiSelection is TRUE.
    VTX_SDK_API int VtxGUIListAdd(int dialog, int x, int y, int width, int height, Boolean multiSelection,
                                  GuiValueCallback_pf callback);
    VTX_SDK_API int VtxGUIListGetItemCount(int list);
    VTX_SDK_API void VtxGUIListAppendItem(int list, const char* item);
    // The selection stays with the entry.
    VTX_SDK_API void VtxGUIListReplaceItem(int list, const char* item, int position);
    // The entries below move up by one, with their selection.
    VTX_SDK_API void VtxGUIListDeleteItemAtPos(int list, int position);
    VTX_SDK_API void VtxGUIListDeleteAllItems(int list);
    // Makes the entry the whole selection.
    VTX_SDK_API void VtxGUIListSetSelectedItem(int list, int position);
    // Makes these entries the whole selection (duplicates count once); a single-selection list takes one
    // at most. Out-of-range positions refuse the whole call.
    VTX_SDK_API void VtxGUIListSetSelectedItems(int list, const int* positions, int count);
    // The selected positions in ascending order, in a host array the caller releases with
    // VtxUtilArrayDealloc; null with a count of 0 when nothing is selected.
    VTX_SDK_API void VtxGUIListGetSelectedItems(int list, int** positions, int* count);
    VTX_SDK_API void VtxGUIListDeselectAllItems(int list);

    // ---- Option menus -------------------------------------------------------------------------------------
    // An option menu shows one of its entries. itemText holds the first entries, separated by line breaks
    // (null or empty for none). A menu that has entries always shows one: the first, until another is chosen.
    VTX_SDK_API int VtxGUIOptionMenuAdd(int dialog, int x, int y, int width, int height, const char* itemText,
                                        GuiValueCallback_pf callback);
    // Appending to an empty menu shows the new entry.
    VTX_SDK_API void VtxGUIOptionMenuAppendItem(int optionMenu, const char* item);
    VTX_SDK_API void VtxGUIOptionMenuDeleteAllItems(int optionMenu);
    // The position shown; 0 for an empty menu.
    VTX_SDK_API int VtxGUIOptionMenuGet(int optionMenu);
    VTX_SDK_API void VtxGUIOptionMenuSet(int optionMenu, int position);

    // ---- Menus of a dialog --------------------------------------------------------------------------------
    // One menu bar per dialog; menus hang from the menu bar or from another menu; items, toggles (off at
    // first) and separators go into menus in the order added. Help texts may be null.
    VTX_SDK_API int VtxGUIMenuBarAdd(int dialog);
    VTX_SDK_API int VtxGUIMenuAdd(int parent, const char* label);
    VTX_SDK_API int VtxGUIMenuAddItem(int menu, const char* label, const char* helpText,
                                      GuiActionCallback_pf callback);
    // Choosing a toggle turns it over before its callback is called.
    VTX_SDK_API int VtxGUIMenuAddToggle(int menu, const char* label, const char* helpText,
                                        GuiActionCallback_pf callback);
    VTX_SDK_API int VtxGUIMenuAddSeparator(int menu);
    VTX_SDK_API void VtxGUIMenuSetToggle(int menuToggle, Boolean on);

} // extern "C"
