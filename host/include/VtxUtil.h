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

    // ---- Locks
    // --------------------------------------------------------------------------------------------- The lock
    // nests per add-on; every start must be matched by one finish. A finish without a start is a protocol
    // error that the host reports.
    VTX_SDK_API void VtxUtilLockStart(AddOn_pa addOn);
    VTX_SDK_API void VtxUtilLockFinish(AddOn_pa addOn);
    // The global form, for code that runs before an add-on handle exists.
    VTX_SDK_API void VtxUtilLockOn(void);
    VTX_SDK_API void VtxUtilLockOff(void);

    // ---- Frames
    // --------------------------------------------------------------------------------------------
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

    // ---- The 3D view of the active frame
    // ------------------------------------------------------------------- Each returns FALSE (and leaves its
    // outputs alone) when the active frame is not a 3D plot.
    VTX_SDK_API Boolean VtxUtilThreeDViewGetViewerPos(double* x, double* y, double* z);
    // Psi, Theta and Alpha in radians.
    VTX_SDK_API Boolean VtxUtilThreeDViewGetViewerAngle(double* psi, double* theta, double* alpha);
    VTX_SDK_API Boolean VtxUtilThreeDViewGetProjection(double* fieldOfView, double* viewWidth,
                                                       Boolean* isInPerspective);
    // Turns the view by angle degrees about a view axis; the viewer orbits the chosen origin with the view.
    // The vector is reserved for rotations about an arbitrary axis, which this host does not offer.
    VTX_SDK_API Boolean VtxUtilViewRotate3D(RotateAxis_e axis, RotateOriginLocation_e origin, double angle,
                                            double vectorX, double vectorY, double vectorZ);

    // ---- Drawing
    // ------------------------------------------------------------------------------------------- FALSE
    // suspends drawing, TRUE resumes it; suspensions nest.
    VTX_SDK_API void VtxUtilDrawGraphics(Boolean doDrawing);
    // Redraws the active frame (skipped while drawing is suspended) and completes before returning.
    VTX_SDK_API Boolean VtxUtilRedraw(Boolean doFullDrawing);

    // ---- Solution time of the active frame
    // -----------------------------------------------------------------
    VTX_SDK_API double VtxUtilSolutionTimeGetCurrent(void);
    VTX_SDK_API SetValueReturnCode_e VtxUtilSolutionTimeSetCurrent(double solutionTime);

    // ---- Status line
    // ---------------------------------------------------------------------------------------
    VTX_SDK_API Boolean VtxUtilStatusStartPercentDone(const char* text, Boolean showStopButton,
                                                      Boolean showProgressBar);
    VTX_SDK_API void VtxUtilStatusSetPercentDoneText(const char* text);
    // Updates the progress (0 to 100); FALSE once the user has asked to stop.
    VTX_SDK_API Boolean VtxUtilStatusCheckPercentDone(int percentDone);
    VTX_SDK_API void VtxUtilStatusFinishPercentDone(void);

    // ---- Macro recording
    // -----------------------------------------------------------------------------------
    VTX_SDK_API Boolean VtxUtilMacroIsRecordingActive(void);
    // Appends a line of the host's own macro language to the macro being recorded, as given.
    VTX_SDK_API Boolean VtxUtilMacroRecordRawCommand(const char* command);
    // Appends an add-on command: $!ADDONCOMMAND ADDONID = '<id>' COMMAND = '<text>', quotes and backslashes
    // escaped so that both texts come back unchanged on replay.
    VTX_SDK_API Boolean VtxUtilMacroRecordExtCommand(const char* addOnIDString, const char* command);

    // ---- The page
    // ------------------------------------------------------------------------------------------ The active
    // frame's position (from the page's top left corner) and size, in paper inches.
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

    // ---- Data set of the active frame
    // ---------------------------------------------------------------------- Zones are numbered from 1.
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

    // ---- Export
    // -------------------------------------------------------------------------------------------- Sets one
    // "ExportSetup" value: numbers in doubleValue; enumerations, integers, switches and the file name (a
    // const char* passed as ArbParam_t) in anyValue. subName is unused and may be null.
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

    // ---- Macros
    // -------------------------------------------------------------------------------------------- Registers
    // the callback that replays the add-on commands recorded under addOnIDString.
    VTX_SDK_API Boolean VtxUtilMacroAddCommandCallback(const char* addOnIDString,
                                                       MacroCommandCallback_pf macroCommandCallback);

    // ---- Host strings
    // -------------------------------------------------------------------------------------- A buffer of at
    // least maxLength characters in host memory (null when there is none), for texts handed to the host
    // (which releases them) or released by the add-on with VtxUtilStringDealloc. The host counts what is not
    // released.
    VTX_SDK_API char* VtxUtilStringAlloc(int maxLength, const char* debugInfo);
    VTX_SDK_API void VtxUtilStringDealloc(char** text);

} // extern "C"
