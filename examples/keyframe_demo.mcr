#!VTXMACRO 1
# The key frame add-on's own job: the demo aircraft flown around through six key views, solution time
# looping twice, streamtrace markers moving, and the scene fading in and out, written to an MPEG-4 movie.
# Run it with scripts/demo, or:  vantix keyframe_demo.mcr  (the movie is written beside the macro file).
$!LOADDATA DEMO
$!SETSTYLEVALUE StreamAttributes StreamTiming ShowMarkers = TRUE
$!SETSTYLEVALUE StreamAttributes StreamTiming DeltaTime = 0.5
# The export set up as the add-on's Export Options dialog records it.
$!EXPORTSETUP ExportFormat = MPEG4
$!EXPORTSETUP ExportRegion = CURRENTFRAME
$!EXPORTSETUP ImageWidth = 1280
$!EXPORTSETUP AnimationSpeed = 24
$!EXPORTSETUP UseSuperSampleAntiAliasing = false
$!EXPORTSETUP ExportFName = "keyframe_demo.mp4"
# The key frame file is found beside this macro, as relative names in add-on commands are.
$!ADDONCOMMAND ADDONID = 'Key Frame Animation' COMMAND = 'OpenSettingsFile FileName=aircraft_flyaround.keyframe'
$!ADDONCOMMAND ADDONID = 'Key Frame Animation' COMMAND = 'Animate AnimationDestination=ToFile'
