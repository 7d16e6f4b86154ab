// The main dialog's controls, made in the order and at the places the dialog has always had them.
#include "gui/DialogLayouts.h"
#include "gui/DialogMain.h"

#include <VtxGUI.h>

int Dialog1Manager = GuiId_None;
int AppendKeyFrame_BTN_D1 = GuiId_None;
int Destination_OPT_D1 = GuiId_None;
int LBL3_LBL_D1 = GuiId_None;
int AnimateAll_BTN_D1 = GuiId_None;
int Clear_BTN_D1 = GuiId_None;
int Apply_BTN_D1 = GuiId_None;
int KeyFrameList_MLST_D1 = GuiId_None;
int Delete_BTN_D1 = GuiId_None;
int AnimateSelected_BTN_D1 = GuiId_None;
int Update_BTN_D1 = GuiId_None;
int ViewName_LBL_D1 = GuiId_None;
int ViewName_TF_D1 = GuiId_None;
int FrameCount_LBL_D1 = GuiId_None;
int FrameCount_TF_D1 = GuiId_None;
int InsertKeyFrame_BTN_D1 = GuiId_None;

void BuildDialog1(int parent)
{
    if (Dialog1Manager != GuiId_None)
        return;
    Dialog1Manager =
        VtxGUIDialogCreateModeless(parent, 4870, 2620, "Key Frame Animation", DialogMain::init_CB,
                                   DialogMain::drop, DialogMain::help_BTN_CB);
    const int dialog = Dialog1Manager;

    // The blanks after the button labels keep the labels of the right-hand column lined up on the left.
    AppendKeyFrame_BTN_D1 =
        VtxGUIButtonAdd(dialog, 3160, 65, 1433, 145, "&Append     ", DialogMain::appendKeyFrame_BTN_CB);
    VtxGUISetToolTip(AppendKeyFrame_BTN_D1,
                     "Append the current Vantix view as a key frame to the end of the list");

    Destination_OPT_D1 = VtxGUIOptionMenuAdd(
        dialog, 1847, 2066, 2711, 145, DialogMain::m_destination_OPT_List, DialogMain::destination_OPT_CB);
    LBL3_LBL_D1 = VtxGUILabelAdd(dialog, 207, 2016, "Destination:");

    AnimateAll_BTN_D1 =
        VtxGUIButtonAdd(dialog, 518, 2299, 1208, 278, "A&nimate\nAll", DialogMain::animateAll_BTN_CB);
    VtxGUISetToolTip(AnimateAll_BTN_D1, "Animate through the list of all key frames");

    Clear_BTN_D1 =
        VtxGUIButtonAdd(dialog, 3160, 1341, 1433, 145, "&Clear         ", DialogMain::clear_BTN_CB);
    VtxGUISetToolTip(Clear_BTN_D1, "Delete all key frame views from the list");

    Apply_BTN_D1 = VtxGUIButtonAdd(dialog, 3160, 783, 1416, 145, "A&pply        ", DialogMain::apply_BTN_CB);
    VtxGUISetToolTip(Apply_BTN_D1, "Apply the selected key frame as the view in Vantix");

    KeyFrameList_MLST_D1 = VtxGUIListAdd(dialog, 224, 65, 2745, 1414, TRUE, DialogMain::keyFrameList_MLST_CB);

    Delete_BTN_D1 =
        VtxGUIButtonAdd(dialog, 3160, 1138, 1416, 145, "&Delete       ", DialogMain::delete_BTN_CB);
    VtxGUISetToolTip(Delete_BTN_D1, "Delete the selected key frame");

    AnimateSelected_BTN_D1 = VtxGUIButtonAdd(dialog, 2884, 2299, 1243, 278, "  Animate \n&Selected",
                                             DialogMain::animateSelected_BTN_CB);
    VtxGUISetToolTip(AnimateSelected_BTN_D1, "Animate between the selected and next key frames");

    Update_BTN_D1 = VtxGUIButtonAdd(dialog, 3160, 580, 1433, 145, "&Update      ", DialogMain::update_BTN_CB);
    VtxGUISetToolTip(Update_BTN_D1, "Update the selected key frame with the current view in Vantix");

    ViewName_LBL_D1 = VtxGUILabelAdd(dialog, 207, 1595, "View Name:");
    ViewName_TF_D1 = VtxGUITextFieldAdd(dialog, 1847, 1645, 2711, 145, DialogMain::viewName_TF_CB);
    VtxGUISetToolTip(ViewName_TF_D1, "Enter the name of the selected view");

    FrameCount_LBL_D1 = VtxGUILabelAdd(dialog, 189, 1806, "Frame Count:");
    FrameCount_TF_D1 = VtxGUITextFieldAdd(dialog, 1847, 1856, 2711, 145, DialogMain::frameCount_TF_CB);
    VtxGUISetToolTip(FrameCount_TF_D1,
                     "Enter the number of frames between the selected and next key frame views");

    InsertKeyFrame_BTN_D1 =
        VtxGUIButtonAdd(dialog, 3160, 261, 1467, 145, "&Insert         ", DialogMain::insertKeyFrame_BTN_CB);
    VtxGUISetToolTip(InsertKeyFrame_BTN_D1,
                     "Add the current Vantix view as a key frame below the selected item(s) in the list");
}
