// The time animation options dialog's controls, in the order and at the places it has always had them.
#include "gui/DialogLayouts.h"
#include "gui/DialogTimeOptions.h"

#include <VtxGUI.h>

int Dialog3Manager = GuiId_None;
int numCycles_LBL_D3 = GuiId_None;
int animationOperation_RADIO_D3 = GuiId_None;
int numCycles_TFS_D3 = GuiId_None;

void BuildDialog3(int parent)
{
    if (Dialog3Manager != GuiId_None)
        return;
    Dialog3Manager = VtxGUIDialogCreateModal(
        parent, 5357, 878, "Time Animation Options", DialogTimeOptions::init_CB, DialogTimeOptions::ok_BTN_CB,
        nullptr, DialogTimeOptions::cancel_BTN_CB, DialogTimeOptions::help_BTN_CB);
    const int dialog = Dialog3Manager;

    numCycles_LBL_D3 = VtxGUILabelAdd(dialog, 2901, 159, "Num Cycles:");
    VtxGUIFrameAdd(dialog, 207, 79, 4956, 732, "Animation Operation");
    // The positions of the buttons are the keys of the dialog's map to the operations.
    animationOperation_RADIO_D3 =
        VtxGUIRadioBoxAdd(dialog, 587, 166, 2003, 573, "&Forward", "&Loop", "&Bounce", "&As Captured",
                          nullptr, DialogTimeOptions::animationOperation_RADIO_CB);
    numCycles_TFS_D3 = VtxGUISpinTextFieldAdd(
        dialog, 2918, 333, 1329, 145, DialogTimeOptions::numCycles_TFS_ValueChanged_CB,
        DialogTimeOptions::numCycles_TFS_ButtonUp_CB, DialogTimeOptions::numCycles_TFS_ButtonDown_CB);
}
