#pragma once

#include <sys/types.h>

#include <cstdio>
#include <memory>
#include <string>

#include "geom/CPolygon.h"

namespace nestrix {

/// Reads the text of one polygon file from front to back, as far as it goes, and notes where what is.
/// CPolygon::ReadPolygon says how; prints nothing.
///
/// Order of use: construct; if the file IsOpen, Read once.
class CPolygonReader {
public:
    /// Where things begin, in characters from the start of the text.
    struct SPlaces {
        off_t m_nFault = 0;
        off_t m_nOutline = 0;
        off_t m_nBox = 0;
        off_t m_nRest = 0;  ///< of what follows the bounding box
    };

    /// Opens a regular file. Folders, pipes and devices are refused here: reading from them fails late, waits
    /// for ever or never ends.
    explicit CPolygonReader(char const* path);

    [[nodiscard]] bool IsOpen() const { return m_pText != nullptr; }

    /// Appends the vertices, sets the box, and does not analyse.
    void Read(CPolygon& polygon);

    /// Why the file could not be opened, or the first thing that makes its text unsound; empty for a sound
    /// one. Sound means: a count of at least three, as many vertices, a bounding box whose first corner is
    /// the upper-right one, and finite numbers throughout.
    [[nodiscard]] const std::string& Fault() const { return m_Fault; }
    [[nodiscard]] const SPlaces& Places() const { return m_Places; }

    /// How many vertices the text says that it has, and how many of those are there before the first fault.
    [[nodiscard]] int Announced() const { return m_nAnnounced; }
    [[nodiscard]] int Found() const { return m_nFound; }

    /// The text, for whoever wants to know the lines. Null if the file is not open.
    [[nodiscard]] std::FILE* Text() const { return m_pText.get(); }

private:
    struct SCloseFile {
        void operator()(std::FILE* pFile) const { std::fclose(pFile); }
    };

    void NoteFault(off_t nAt, const std::string& fault);
    int ReadCount();
    void ReadVertices(int nVertices, CPolygon& polygon);
    [[nodiscard]] bool HasRoomFor(int nVertices);
    void ReadBoundingBox(CPolygon& polygon);

    std::unique_ptr<std::FILE, SCloseFile> m_pText;
    std::string m_Fault;
    SPlaces m_Places;
    int m_nAnnounced = 0;
    int m_nFound = 0;
};

}  // namespace nestrix
