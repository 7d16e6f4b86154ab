// The key frame file: a whole key frame animation (the animation settings and the list of key frames) as a
// small line-oriented text file. It is written in one canonical form and read tolerantly: keywords in any
// case, blank lines and surrounding white space ignored, entries in any order, and every unknown or
// malformed line reported with its line number.
#pragma once

#include "core/EnumMap.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

// The settings and the key frame items of the file, in the order in which they are written, each named in
// the file as it is here. Each list makes both the enumeration and its texts, so the two cannot differ.
#define VANTIX_KEYFRAME_FILE_SETTINGS(ITEM)                                                                  \
    ITEM(AnimateTime)                                                                                        \
    ITEM(TimeAnimationOperation) ITEM(NumCycles) ITEM(AnimateStreamtraces) ITEM(FadeIn) ITEM(FadeOut)
#define VANTIX_KEYFRAME_FILE_ITEMS(ITEM)                                                                     \
    ITEM(Name) ITEM(Position) ITEM(Angle) ITEM(Width) ITEM(FrameCount) ITEM(SolutionTime)

namespace vantix::vtxutiltools
{

class ListModelKeyFrame;
class View;
struct KeyFrame_s;
struct Settings_s;

// Made for one save or one read and then discarded, so that the line count starts at 0 for each file.
class KeyFrameFile
{
public:
    enum Section_e : int
    {
        Settings = 0,
        KeyFrameView = 1
    };

#define VANTIX_KEYFRAME_FILE_ENUMERATOR(name) name,
    // From 0, in the order in which they are written.
    enum Setting_e : int
    {
        VANTIX_KEYFRAME_FILE_SETTINGS(VANTIX_KEYFRAME_FILE_ENUMERATOR)
    };
    enum KeyFrameItem_e : int
    {
        VANTIX_KEYFRAME_FILE_ITEMS(VANTIX_KEYFRAME_FILE_ENUMERATOR)
    };
#undef VANTIX_KEYFRAME_FILE_ENUMERATOR

    // The format version that is written and the newest that is read.
    static constexpr int m_version = 1;
    static const std::string m_headerToken;
    // The default extension of key frame file names.
    static const std::string m_fileNameExtension;

    KeyFrameFile() = default;
    virtual ~KeyFrameFile() = default;

    // Writes settings (all but the destination) and every key frame of model. An empty model is refused
    // before any file is opened, so that an existing file is left as it was. Errors while writing to a file
    // that could be opened are not reported.
    void saveFile(const std::string& fileName, const Settings_s& settings,
                  const ListModelKeyFrame& model) const;

    // Reads the whole file into a working copy and only then replaces settings and the model's list, so that
    // a file with any error changes neither. Settings the file does not mention keep their values; the list
    // becomes exactly the key frames of the file, empty if it has none.
    void readFile(const std::string& fileName, Settings_s& settings, ListModelKeyFrame& model);

    void writeSettings(std::ostream& out, const Settings_s& settings) const;
    void writeModel(std::ostream& out, const ListModelKeyFrame& model) const;

    // The header line: the header word in any case and a version no newer than m_version. Its errors are
    // given without the reading error prefix.
    void readFileHeader(std::istream& in);
    // The entries of one settings section, after its opening line, up to and including its end marker or
    // the end of the file.
    void readSettings(std::istream& in, Settings_s& settings);
    // The items of one key frame section, after its opening line, up to and including its end marker or the
    // end of the file. The section must give the view's Position and Angle; name, frame count and solution
    // time are left as they were when the section does not mention them, the width is 0.
    void readKeyFrameView(std::istream& in, View& view, std::uint64_t& frameCount, std::string& name,
                          double& solutionTime);
    // Reads the next line into line without its surrounding white space, counting every attempt, also the
    // one that meets the end of the file. line is empty when nothing could be read.
    void readLine(std::istream& in, std::string& line, bool skipEmptyLines);
    // Reads every value of type T that follows on in; exactly expectedCount of them must be there.
    template <typename T>
    void readValuesFromStream(std::istringstream& in, std::uint64_t expectedCount,
                              std::vector<T>& values) const;

    // Throws KeyFrameError with the reading error prefix and, when asked and a line has been read, the line
    // number.
    [[noreturn]] void throwError(const std::string& message, bool withLineNumber) const;

private:
    // Reads the next line of a section into line and entry and takes its first word as key; false when the
    // line is ownSection's end marker. The other section's word or an unknown key is a reading error.
    template <typename Key>
    bool readEntryKey(std::istream& in, Section_e ownSection, std::string& line, std::istringstream& entry,
                      Key& key);
    void readSection(std::istream& in, const std::string& line, Settings_s& settings,
                     std::vector<KeyFrame_s>& keyFrames);
    void readSettingValue(std::istringstream& entry, Setting_e setting, Settings_s& settings) const;
    bool readBoolean(std::istringstream& entry, Setting_e setting) const;
    std::string readName(const std::string& line) const;
    double readWidth(std::istringstream& entry) const;
    std::uint64_t readFrameCount(std::istringstream& entry) const;
    double readSolutionTime(std::istringstream& entry) const;

    std::uint64_t m_lineNumber = 0;
    // Where readLine reads a line, which must fit in it.
    std::vector<char> m_lineBuffer;
};

template <>
void EnumMap<KeyFrameFile::Section_e>::initializeMaps();
template <>
void EnumMap<KeyFrameFile::Setting_e>::initializeMaps();
template <>
void EnumMap<KeyFrameFile::KeyFrameItem_e>::initializeMaps();

} // namespace vantix::vtxutiltools
