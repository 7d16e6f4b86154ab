// The add-on's three dialogs as the host shows them: each builder makes its host dialog and every control
// of it once, and keeps each identifier in a global named after the control, its kind and its dialog. Every
// identifier is -2 (no element) until its builder has run; a builder that has run already does nothing, so
// the dialogs and their controls are the same from one launch to the next.
//
// The main dialog (D1) and the time animation options dialog (D3) hang from the host's own window (-1);
// the export options dialog (D2) from the main dialog.
#pragma once

// ---- The main dialog "Key Frame Animation" (modeless) -------------------------------------------------
extern int Dialog1Manager;
extern int AppendKeyFrame_BTN_D1;
extern int Destination_OPT_D1;
extern int LBL3_LBL_D1;
extern int AnimateAll_BTN_D1;
extern int Clear_BTN_D1;
extern int Apply_BTN_D1;
extern int KeyFrameList_MLST_D1;
extern int Delete_BTN_D1;
extern int AnimateSelected_BTN_D1;
extern int Update_BTN_D1;
extern int ViewName_LBL_D1;
extern int ViewName_TF_D1;
extern int FrameCount_LBL_D1;
extern int FrameCount_TF_D1;
extern int InsertKeyFrame_BTN_D1;

void BuildDialog1(int parent);

// ---- The export options dialog "Export Options" (modal) -----------------------------------------------
extern int Dialog2Manager;
extern int LBL1_LBL_D2;
extern int Region_OPT_D2;
extern int Width_RADIO_D2;
extern int Width_TF_D2;
extern int Antialiasing_TOG_D2;
extern int SupersampleFactor_TF_D2;
extern int SupersampleFactor_LBL_D2;
extern int AnimationSpeed_LBL_D2;
extern int AnimationSpeed_TF_D2;
extern int ImageType_LBL_D2;
extern int ImageType_OPT_D2;
extern int Optimization_RADIO_D2;
extern int ImageDimensions_LBL_D2;
extern int AVICompression_LBL_D2;
extern int AVICompression_OPT_D2;
extern int Format_LBL_D2;
extern int Format_OPT_D2;

void BuildDialog2(int parent);

// ---- The time animation options dialog "Time Animation Options" (modal) -------------------------------
extern int Dialog3Manager;
extern int numCycles_LBL_D3;
extern int animationOperation_RADIO_D3;
extern int numCycles_TFS_D3;

void BuildDialog3(int parent);
