// The export options dialog as the host shows it: a modal dialog with OK, Cancel and Help, hanging from
// the main dialog.
#include "gui/DialogExportOptions.h"
#include "gui/DialogLayouts.h"

#include <VtxGUI.h>

int Dialog2Manager = GuiId_None;
int LBL1_LBL_D2 = GuiId_None;
int Region_OPT_D2 = GuiId_None;
int Width_RADIO_D2 = GuiId_None;
int Width_TF_D2 = GuiId_None;
int Antialiasing_TOG_D2 = GuiId_None;
int SupersampleFactor_TF_D2 = GuiId_None;
int SupersampleFactor_LBL_D2 = GuiId_None;
int AnimationSpeed_LBL_D2 = GuiId_None;
int AnimationSpeed_TF_D2 = GuiId_None;
int ImageType_LBL_D2 = GuiId_None;
int ImageType_OPT_D2 = GuiId_None;
int Optimization_RADIO_D2 = GuiId_None;
int ImageDimensions_LBL_D2 = GuiId_None;
int AVICompression_LBL_D2 = GuiId_None;
int AVICompression_OPT_D2 = GuiId_None;
int Format_LBL_D2 = GuiId_None;
int Format_OPT_D2 = GuiId_None;

void BuildDialog2(int parent)
{
    if (Dialog2Manager != GuiId_None)
        return;
    Dialog2Manager = VtxGUIDialogCreateModal(
        parent, 5844, 2503, "Export Options", DialogExportOptions::init_CB, DialogExportOptions::ok_BTN_CB,
        nullptr, DialogExportOptions::cancel_BTN_CB, DialogExportOptions::help_BTN_CB);
    // Refused by the host (no such parent): the next launch tries again.
    if (Dialog2Manager == GuiId_None)
        return;

    const int d = Dialog2Manager;
    const char* const emptyMenu = DialogExportOptions::empty_OPT_List;
    LBL1_LBL_D2 = VtxGUILabelAdd(d, 293, 319, "Region:");
    Region_OPT_D2 =
        VtxGUIOptionMenuAdd(d, 1467, 282, 4110, 145, emptyMenu, DialogExportOptions::region_OPT_CB);
    Width_RADIO_D2 =
        VtxGUIRadioBoxAdd(d, 328, 522, 5249, 297, "&Use Width of Image on Screen", "&Enter Width:", nullptr,
                          nullptr, nullptr, DialogExportOptions::width_RADIO_CB);
    Width_TF_D2 = VtxGUITextFieldAdd(d, 811, 848, 949, 145, DialogExportOptions::width_TF_CB);
    Antialiasing_TOG_D2 =
        VtxGUIToggleAdd(d, 293, 1334, 2055, 123, "&Antialiasing", DialogExportOptions::antialiasing_TOG_CB);
    SupersampleFactor_TF_D2 =
        VtxGUITextFieldAdd(d, 3989, 1457, 1588, 145, DialogExportOptions::supersampleFactor_TF_CB);
    SupersampleFactor_LBL_D2 = VtxGUILabelAdd(d, 656, 1479, "Supersample Factor (2-16):");
    AnimationSpeed_LBL_D2 = VtxGUILabelAdd(d, 293, 1153, "Animation Speed (frames/sec):");
    AnimationSpeed_TF_D2 =
        VtxGUITextFieldAdd(d, 3989, 1131, 1588, 145, DialogExportOptions::animationSpeed_TF_CB);
    ImageType_LBL_D2 = VtxGUILabelAdd(d, 259, 1943, "Image Type:");
    ImageType_OPT_D2 =
        VtxGUIOptionMenuAdd(d, 2417, 1907, 3177, 145, emptyMenu, DialogExportOptions::imageType_OPT_CB);
    Optimization_RADIO_D2 =
        VtxGUIRadioBoxAdd(d, 241, 2125, 5336, 297, "Optimize for &Speed", "Optimize for &File Size", nullptr,
                          nullptr, nullptr, DialogExportOptions::optimization_RADIO_CB);
    ImageDimensions_LBL_D2 = VtxGUILabelAdd(d, 2400, 884, "Dimensions: 0 x 0");
    AVICompression_LBL_D2 = VtxGUILabelAdd(d, 259, 1733, "AVI Compression:");
    AVICompression_OPT_D2 =
        VtxGUIOptionMenuAdd(d, 2417, 1697, 3177, 145, emptyMenu, DialogExportOptions::aviCompression_OPT_CB);
    Format_LBL_D2 = VtxGUILabelAdd(d, 293, 116, "Format:");
    Format_OPT_D2 =
        VtxGUIOptionMenuAdd(d, 1467, 65, 4110, 145, emptyMenu, DialogExportOptions::exportFormat_OPT_CB);
}
