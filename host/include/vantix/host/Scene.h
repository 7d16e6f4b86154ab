// The host's own API for data sets: what the program's macros and the tests load into the active frame.
#pragma once

#include <string>

namespace vantix::host
{

// Loads the built-in demo data set into the active frame (a 3D frame is made when the page has none).
void loadDemoDataSet();
// Loads a surface mesh file (STL, OBJ, PLY, ...) into the active frame as one static zone. Throws
// std::runtime_error with a message that names the file and the reason when it cannot be read.
void loadDataFile(const std::string& path);

} // namespace vantix::host
