// The Vantix SDK base interface: the functions through which an add-on works on the host.
//
// Every function runs on the host's user-interface thread. Functions that act on "the view", "the plot type"
// or "the solution time" act on the active frame.
#pragma once

#include <cstdint>

typedef char Boolean;
#ifndef TRUE
#define TRUE ((Boolean)1)
#endif
#ifndef FALSE
#define FALSE ((Boolean)0)
#endif

typedef struct AddOn_s* AddOn_pa;
typedef int64_t UniqueID_t;
typedef int64_t LgIndex_t;
typedef int32_t EntIndex_t;
typedef struct Set_s* Set_pa;
typedef intptr_t ArbParam_t; // an integer, or a pointer passed as one
typedef void (*OnIdleCallback_pf)(ArbParam_t clientData);
// A macro command callback: the host hands over the command text of an $!ADDONCOMMAND line; on failure
// the callback returns FALSE and sets *errorMessage to a text made with VtxUtilStringAlloc, which the host
// releases.
typedef Boolean (*MacroCommandCallback_pf)(char* commandText, char** errorMessage);

enum PlotType_e
{
    PlotType_Automatic = 0,
    PlotType_Cartesian3D = 1,
    PlotType_Cartesian2D = 2,
    PlotType_XYLine = 3,
    PlotType_Sketch = 4,
    PlotType_PolarLine = 5,
    PlotType_Invalid = -1
};

// Axes of VtxUtilViewRotate3D. The host turns the 3D view about the view axes Psi, Theta and Alpha; the
// model axes X, Y and Z are refused.
enum RotateAxis_e
{
    RotateAxis_X = 0,
    RotateAxis_Y = 1,
    RotateAxis_Z = 2,
    RotateAxis_Psi = 3,
    RotateAxis_Theta = 4,
    RotateAxis_Alpha = 5
};

// What the viewer orbits in VtxUtilViewRotate3D: the frame's rotation origin, or the viewer itself (the
// viewer then stays where it is and only turns).
enum RotateOriginLocation_e
{
    RotateOriginLocation_DefinedOrigin = 0,
    RotateOriginLocation_Viewer = 1
};

// Units of VtxUtilConvertXDimension / VtxUtilConvertYDimension.
enum Units_e
{
    Units_Inches = 3,
    Units_Pixels = 4
};

// The host's export formats. The animation formats are RasterMetafile, AVI, Flash, FLV, MPEG4 and WMV;
// the others write one still image.
enum ExportFormat_e
{
    ExportFormat_RasterMetafile = 0,
    ExportFormat_TIFF = 1,
    ExportFormat_BMP = 12,
    ExportFormat_PNG = 13,
    ExportFormat_AVI = 14,
    ExportFormat_JPEG = 16,
    ExportFormat_Flash = 17,
    ExportFormat_FLV = 20,
    ExportFormat_MPEG4 = 21,
    ExportFormat_WMV = 22
};

enum ExportRegion_e
{
    ExportRegion_CurrentFrame = 0,
    ExportRegion_AllFrames = 1,
    ExportRegion_WorkArea = 2
};

enum AVICompression_e
{
    AVICompression_ColorPreserving = 0,
    AVICompression_LinePreserving = 1,
    AVICompression_LosslessUncompressed = 2
};

enum FlashImageType_e
{
    FlashImageType_Lossless = 0,
    FlashImageType_JPEG = 1,
    FlashImageType_Color256 = 2
};

enum FlashCompressionType_e
{
    FlashCompressionType_BestSpeed = 0,
    FlashCompressionType_SmallestSize = 1
};

enum SetValueReturnCode_e
{
    SetValueReturnCode_Ok = 0,
    SetValueReturnCode_DuplicateValue = 1,
    SetValueReturnCode_InvalidName = 2,
    SetValueReturnCode_InvalidType = 3,
    SetValueReturnCode_InvalidValue = 4,
    SetValueReturnCode_ContextError = 5
};

enum GetValueReturnCode_e
{
    GetValueReturnCode_Ok = 0,
    GetValueReturnCode_InvalidName = 1,
    GetValueReturnCode_InvalidType = 2,
    GetValueReturnCode_ContextError = 3
};

// State changes the host tells add-ons about, as they happen: through callbacks registered with
// VtxUtilStateChangeAddCallbackX and through vantix::toolbox::StateChangeNotifier listeners.
enum StateChange_e
{
    StateChange_ZonesDeleted = 2,    // no operation of this host deletes zones yet
    StateChange_ZonesAdded = 3,      // a data set's zones came into a frame
    StateChange_FrameDeleted = 5,    // before the active frame is told, when that changes too
    StateChange_NewTopFrame = 6,     // the active frame changed (also to none)
    StateChange_Style = 7,           // a style setting changed, other than a "ThreeDView" one
    StateChange_DataSetReset = 8,    // a frame's data set was replaced by another
    StateChange_NewLayout = 9,       // no operation of this host starts a new layout yet
    StateChange_View3D = 12,         // the active frame's 3D view changed
    StateChange_QuitProgram = 15,    // the program is ending
    StateChange_ZoneActivation = 16, // zones were enabled or disabled
    StateChange_PlotTypeChanged = 44,
    StateChange_FrameCreated = 50, // followed by NewTopFrame: a new frame becomes active
    StateChange_DataSetLoaded = 51
};
typedef void (*StateChangeCallback_pf)(StateChange_e stateChange);

// How state changes reach a listener. This host delivers each change the moment it happens.
enum StateChangeMode_e
{
    StateChangeMode_Immediate = 2
};
// The form of a state-change callback: StateChangeCallback_pf, the change alone.
enum StateChangeCallbackAPI_e
{
    StateChangeCallbackAPI_ChangeOnly = 1
};

// A list of named arguments for the SDK functions that take one (VtxUtilStateChangeAddCallbackX).
typedef struct ArgList_s* ArgList_pa;

// Message boxes: Error, Warning and Information only tell; Question asks OK or Cancel, YesNo asks Yes or No.
enum MessageBoxType_e
{
    MessageBoxType_Error = 0,
    MessageBoxType_Warning = 1,
    MessageBoxType_Information = 2,
    MessageBoxType_Question = 3,
    MessageBoxType_YesNo = 4
};

// The host's file dialogs: choose an existing file to read, or a file to write (the dialog itself has the
// user confirm overwriting an existing file).
enum SelectFileOption_e
{
    SelectFileOption_ReadSingleFile = 0,
    SelectFileOption_WriteFile = 3
};

// An option an add-on adds to one of the host's menus.
typedef void (*MenuOptionCallback_pf)(void);

#if defined(__GNUC__)
#define VTX_SDK_API __attribute__((visibility("default")))
#else
#define VTX_SDK_API
#endif

extern "C"
{

    // ---- Add-on registration ------------------------------------------------------------------------------
    // Registers an add-on and returns its handle, which the add-on passes to its locks.
    VTX_SDK_API AddOn_pa VtxUtilAddOnRegister(int sdkVersion, const char* name, const char* version,
                                              const char* author);

    // ---- Locks --------------------------------------------------------------------------------------------
    // The lock nests per add-on; every start must be matched by one finish. A finish without a start is a
    // protocol error that the host reports.
    VTX_SDK_API void VtxUtilLockStart(AddOn_pa addOn);
    VTX_SDK_API void VtxUtilLockFinish(AddOn_pa addOn);
    // The global form, for code that runs before an add-on handle exists.
    VTX_SDK_API void VtxUtilLockOn(void);
    VTX_SDK_API void VtxUtilLockOff(void);

    // ---- Frames -------------------------------------------------------------------------------------------
    VTX_SDK_API int VtxUtilFrameGetCount(void);
    // The active frame's plot type; PlotType_Invalid when the page has no frame.
    VTX_SDK_API PlotType_e VtxUtilFrameGetPlotType(void);
    // The active frame's unique id; 0 when the page has no frame. Ids are never reused.
    VTX_SDK_API UniqueID_t VtxUtilFrameGetUniqueID(void);
    // Makes the top frame of the stack active.
    VTX_SDK_API Boolean VtxUtilFrameActivateTop(void);
    // Sends the top frame to the bottom of the stack; the new top frame becomes active.
    VTX_SDK_API Boolean VtxUtilFramePushTop(void);
    // Makes the frame with that id active without changing the stacking order; FALSE for an unknown id.
    VTX_SDK_API Boolean VtxUtilFrameActivateByUniqueID(UniqueID_t uniqueID);

    // ---- The 3D view of the active frame ------------------------------------------------------------------
    // Each returns FALSE (and leaves its outputs alone) when the active frame is not a 3D plot.
    VTX_SDK_API Boolean VtxUtilThreeDViewGetViewerPos(double* x, double* y, double* z);
    // Psi, Theta and Alpha in radians.
    VTX_SDK_API Boolean VtxUtilThreeDViewGetViewerAngle(double* psi, double* theta, double* alpha);
    VTX_SDK_API Boolean VtxUtilThreeDViewGetProjection(double* fieldOfView, double* viewWidth,
                                                       Boolean* isInPerspective);
    // Turns the view by angle degrees about a view axis; the viewer orbits the chosen origin with the view.
    // The vector is reserved for rotations about an arbitrary axis, which this host does not offer.
    VTX_SDK_API Boolean VtxUtilViewRotate3D(RotateAxis_e axis, RotateOriginLocation_e origin, double angle,
                                            double vectorX, double vectorY, double vectorZ);

    // ---- Drawing ------------------------------------------------------------------------------------------
    // FALSE suspends drawing, TRUE resumes it; suspensions nest.
    VTX_SDK_API void VtxUtilDrawGraphics(Boolean doDrawing);
    // Redraws the active frame (skipped while drawing is suspended) and completes before returning.
    VTX_SDK_API Boolean VtxUtilRedraw(Boolean doFullDrawing);

    // ---- Solution time of the active frame ----------------------------------------------------------------
    VTX_SDK_API double VtxUtilSolutionTimeGetCurrent(void);
    VTX_SDK_API SetValueReturnCode_e VtxUtilSolutionTimeSetCurrent(double solutionTime);

    // ---- Status line --------------------------------------------------------------------------------------
    VTX_SDK_API Boolean VtxUtilStatusStartPercentDone(const char* text, Boolean showStopButton,
                                                      Boolean showProgressBar);
    VTX_SDK_API void VtxUtilStatusSetPercentDoneText(const char* text);
    // Updates the progress (0 to 100); FALSE once the user has asked to stop.
    VTX_SDK_API Boolean VtxUtilStatusCheckPercentDone(int percentDone);
    VTX_SDK_API void VtxUtilStatusFinishPercentDone(void);

    // ---- Macro recording ----------------------------------------------------------------------------------
    VTX_SDK_API Boolean VtxUtilMacroIsRecordingActive(void);
    // Appends a line of the host's own macro language to the macro being recorded, as given.
    VTX_SDK_API Boolean VtxUtilMacroRecordRawCommand(const char* command);
    // Appends an add-on command: $!ADDONCOMMAND ADDONID = '<id>' COMMAND = '<text>', quotes and backslashes
    // escaped so that both texts come back unchanged on replay.
    VTX_SDK_API Boolean VtxUtilMacroRecordExtCommand(const char* addOnIDString, const char* command);

    // ---- The page -----------------------------------------------------------------------------------------
    // The active frame's position (from the page's top left corner) and size, in paper inches.
    VTX_SDK_API void VtxUtilFrameGetPosAndSize(double* x, double* y, double* width, double* height);
    // The size of the work area (the page as shown) in screen pixels.
    VTX_SDK_API void VtxUtilWorkAreaGetDimensions(int* width, int* height);
    // Converts a length between units (Units_e: 3 paper inches, 4 screen pixels).
    VTX_SDK_API double VtxUtilConvertXDimension(int fromUnits, int toUnits, double value);
    VTX_SDK_API double VtxUtilConvertYDimension(int fromUnits, int toUnits, double value);
    // The host's own walk over every frame, leaving the stacking order alone: start makes the first frame
    // current, next the following one (FALSE when there is none), end makes the frame active before the walk
    // active again.
    VTX_SDK_API Boolean VtxUtilFrameLightweightPopStart(void);
    VTX_SDK_API Boolean VtxUtilFrameLightweightPopNext(void);
    VTX_SDK_API void VtxUtilFrameLightweightPopEnd(void);

    // ---- Data set of the active frame ---------------------------------------------------------------------
    // Zones are numbered from 1.
    VTX_SDK_API Boolean VtxUtilDataSetIsAvailable(void);
    // A new set of the enabled zones (null when the frame has no data set); release it with
    // VtxUtilSetDealloc.
    VTX_SDK_API Boolean VtxUtilZoneGetEnabled(Set_pa* enabledZones);
    // The member after member (0 to begin); 0 after the last.
    VTX_SDK_API LgIndex_t VtxUtilSetGetNextMember(Set_pa set, LgIndex_t member);
    // Releases a set and sets the handle to null.
    VTX_SDK_API void VtxUtilSetDealloc(Set_pa* set);
    VTX_SDK_API double VtxUtilZoneGetSolutionTime(EntIndex_t zone);
    // 0 for a static zone; greater than 0 for a zone of a time strand.
    VTX_SDK_API EntIndex_t VtxUtilZoneGetStrandID(EntIndex_t zone);

    // ---- Journal of the active frame's data set -----------------------------------------------------------
    // The journal keeps, with the data set, the commands that made its data what it is. It is valid while the
    // active frame has a data set whose journal the host has not given up on (a change to the data that it
    // cannot tell); a newly loaded data set starts with a valid, empty journal.
    VTX_SDK_API Boolean VtxUtilDataSetJournalIsValid(void);
    // Appends an add-on command (its id, its text and optional raw data, null for none) to the journal.
    // FALSE, and nothing kept, when the journal is not valid.
    VTX_SDK_API Boolean VtxUtilDataSetAddJournalCommand(const char* addOnIDString, const char* instructions,
                                                        const char* rawData);

    // ---- Export -------------------------------------------------------------------------------------------
    // Sets one "ExportSetup" value: numbers in doubleValue; enumerations, integers, switches and the file
    // name (a const char* passed as ArbParam_t) in anyValue. subName is unused and may be null.
    VTX_SDK_API Boolean VtxUtilExportSetup(const char* name, const char* subName, double doubleValue,
                                           ArbParam_t anyValue);
    VTX_SDK_API Boolean VtxUtilExportIsRecording(void);
    // Draws the export region at the set width, opens the file and takes that image as the first frame.
    // FALSE when an export is already open, the format holds no animation, or the file cannot be written.
    VTX_SDK_API Boolean VtxUtilExportStart(void);
    // Draws the region again and appends it.
    VTX_SDK_API Boolean VtxUtilExportNextFrame(void);
    // Closes the file.
    VTX_SDK_API Boolean VtxUtilExportFinish(void);
    // Abandons the export; no file is left behind.
    VTX_SDK_API void VtxUtilExportCancel(void);

    // ---- Macros -------------------------------------------------------------------------------------------
    // Registers the callback that replays the add-on commands recorded under addOnIDString.
    VTX_SDK_API Boolean VtxUtilMacroAddCommandCallback(const char* addOnIDString,
                                                       MacroCommandCallback_pf macroCommandCallback);

    // ---- Host strings -------------------------------------------------------------------------------------
    // A buffer of at least maxLength characters in host memory (null when there is none), for texts handed to
    // the host (which releases them) or released by the add-on with VtxUtilStringDealloc. The host counts
    // what is not released.
    VTX_SDK_API char* VtxUtilStringAlloc(int maxLength, const char* debugInfo);
    VTX_SDK_API void VtxUtilStringDealloc(char** text);

    // ---- Messages, questions, file dialogs and help -------------------------------------------------------
    // A modal error message.
    VTX_SDK_API void VtxUtilDialogErrMsg(const char* message);
    // TRUE for OK or Yes, FALSE for Cancel or No; the boxes that only tell answer TRUE.
    VTX_SDK_API Boolean VtxUtilDialogMessageBox(const char* message, MessageBoxType_e type);
    // The host's file dialog, showing files of the type fileTypeName that match defaultFilter ("*.ext"),
    // with defaultFileName offered. TRUE when the user chose a file: its name is then in a host string
    // stored through fileName, which the caller releases with VtxUtilStringDealloc.
    VTX_SDK_API Boolean VtxUtilDialogGetFileName(SelectFileOption_e option, char** fileName,
                                                 const char* fileTypeName, const char* defaultFileName,
                                                 const char* defaultFilter);
    // Shows a help page: a page of the host's help folder (docs/help), or with isURL TRUE a web address as
    // given. FALSE when the help folder has no such page. reserved is unused; pass 0.
    VTX_SDK_API Boolean VtxUtilHelp(const char* helpFile, Boolean isURL, int reserved);

    // ---- Options in the host's menus ----------------------------------------------------------------------
    // Adds an option at the end of one of the host's menus ("File", "Edit", "View", "Plot", "Animate",
    // "Data", "Frame", "Options", "Scripting", "Tools", "Help"), usable at once when sensitive is TRUE or
    // greyed out. The label marks its mnemonic letter with '&'. FALSE for an unknown menu or a label the
    // menu has already.
    VTX_SDK_API Boolean VtxUtilMenuAddOption(const char* menuPath, const char* label, Boolean sensitive,
                                             MenuOptionCallback_pf callback);
    VTX_SDK_API Boolean VtxUtilMenuSetSensitivity(const char* menuPath, const char* label, Boolean sensitive);

    // ---- Host arrays --------------------------------------------------------------------------------------
    // Releases an array the host handed out (VtxGUIListGetSelectedItems) and sets the pointer to null;
    // null is fine. The host counts what is not released.
    VTX_SDK_API void VtxUtilArrayDealloc(void** array);

    // ---- Argument lists -----------------------------------------------------------------------------------
    // Names are matched in any case and may appear once in a list. The host counts lists not released.
    VTX_SDK_API ArgList_pa VtxUtilArgListAlloc(void);
    VTX_SDK_API Boolean VtxUtilArgListAppendInt(ArgList_pa argList, const char* name, LgIndex_t value);
    VTX_SDK_API Boolean VtxUtilArgListAppendFunction(ArgList_pa argList, const char* name,
                                                     const void* function);
    // Releases the list and sets the handle to null.
    VTX_SDK_API void VtxUtilArgListDealloc(ArgList_pa* argList);

    // ---- State changes and the on-idle queue --------------------------------------------------------------
    // Registers a state-change callback with the arguments "CallbackFunction" (a StateChangeCallback_pf),
    // "StateChangeMode" (2, the default) and "StateChangeCallbackAPI" (1, the default). The host calls
    // it for every state change from then on, for the rest of the process. FALSE when an argument is
    // missing, unknown or of a value the host does not offer, and for a callback registered already.
    VTX_SDK_API Boolean VtxUtilStateChangeAddCallbackX(ArgList_pa argList);
    // Queues one call of callback(clientData) for when the host is next idle. Calls run in the order
    // queued; a call queued while the queue runs waits for the next idle moment.
    VTX_SDK_API Boolean VtxUtilOnIdleQueueAddCallback(OnIdleCallback_pf callback, ArbParam_t clientData);

} // extern "C"
