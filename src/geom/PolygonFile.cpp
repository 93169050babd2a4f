#include "PolygonFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>

#include "NumericLocale.h"
#include "Polygon.h"

namespace {

struct SCloseFile {
    void operator()(std::FILE* pFile) const { std::fclose(pFile); }
};

struct SPolygonFile {
    std::unique_ptr<std::FILE, SCloseFile> m_pStream;  ///< null when the file could not be opened
    off_t m_nBytes = 0;
    std::string m_Fault;  ///< why it could not be opened
};

/// Opens a regular file. Folders, pipes and devices are refused here: reading from them fails late, waits
/// for ever or never ends. Non-blocking, since opening a pipe without a writer would hang.
SPolygonFile OpenPolygonFile(char const* path) {
    const int nDescriptor = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (nDescriptor < 0) {
        return {nullptr, 0, std::strerror(errno)};
    }
    struct stat status = {};
    if (fstat(nDescriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(nDescriptor);
        return {nullptr, 0, "not a regular file"};
    }
    SPolygonFile file{nullptr, status.st_size, {}};
    file.m_pStream.reset(fdopen(nDescriptor, "r"));
    if (file.m_pStream == nullptr) {
        const int nError = errno;
        close(nDescriptor);  // first: there may be no memory for the text
        file.m_Fault = std::strerror(nError);
    }
    return file;
}

void Note(std::string& fault, const std::string& found) {
    if (fault.empty()) {
        fault = found;
    }
}

bool IsFinite(const mgVector3& position) {
    return std::isfinite(position.x) && std::isfinite(position.y);
}

/// Appends the file's vertices to the polygon. Returns the first fault, empty without one.
std::string ReadVertices(const SPolygonFile& file, CPolygon& polygon) {
    std::string fault;
    int nVertices = 0;
    if (std::fscanf(file.m_pStream.get(), "%d", &nVertices) != 1) {
        Note(fault, "it does not begin with the number of vertices");
    } else if (nVertices < 3) {
        Note(fault, "it has fewer than three vertices");
    }
    // A vertex takes four bytes at least ("1,2 "). A count beyond what the file can hold is a lie: then only
    // the vertices that are there are taken. Any other count is believed, and what is missing reads as 0.
    constexpr off_t SHORTEST_VERTEX = 4;
    const bool bPossible = nVertices <= file.m_nBytes / SHORTEST_VERTEX;
    for (int i = 0; i < nVertices; ++i) {
        CPoint point;
        mgVector3& position = point.m_Position;
        if (std::fscanf(file.m_pStream.get(), "%f,%f", &position.x, &position.y) != 2) {
            Note(fault, "vertex " + std::to_string(i + 1) + " of " + std::to_string(nVertices) +
                            " is not a pair \"x,y\"");
            if (!bPossible) {
                break;
            }
        } else if (!IsFinite(position)) {
            Note(fault, "vertex " + std::to_string(i + 1) + " is not finite");
        }
        polygon.m_Points.push_back(point);
    }
    return fault;
}

/// Reads the box, the upper-right corner first: the format's deliberate order.
std::string ReadBoundingBox(const SPolygonFile& file, CPolygon& polygon) {
    mgVector3 max;
    mgVector3 min;
    const int nRead = std::fscanf(file.m_pStream.get(), "\n;%f,%f\n%f,%f", &max.x, &max.y, &min.x, &min.y);
    polygon.m_BoundingBoxMax = max;
    polygon.m_BoundingBoxMin = min;
    if (nRead != 4) {
        return "no semicolon with the two corners of the bounding box follows the vertices";
    }
    if (!IsFinite(max) || !IsFinite(min)) {
        return "the bounding box is not finite";
    }
    if (max.x < min.x || max.y < min.y) {
        return "the bounding box does not name its upper-right corner first";
    }
    return {};
}

std::string ReadContent(const SPolygonFile& file, CPolygon& polygon) {
    const CNumericLocale numericLocale;
    std::string fault = ReadVertices(file, polygon);
    Note(fault, ReadBoundingBox(file, polygon));
    return fault;
}

}  // namespace

bool CPolygon::ReadPolygon(char const* path) {
    SPolygonFile file = OpenPolygonFile(path);
    if (file.m_pStream == nullptr) {
        std::printf("Couldn't read polyon file %s\n", path);
        return false;
    }
    (void)ReadContent(file, *this);
    file.m_pStream.reset();
    Process();
    return true;
}

std::string FindPolygonFileFault(char const* path) {
    const SPolygonFile file = OpenPolygonFile(path);
    if (file.m_pStream == nullptr) {
        return file.m_Fault;
    }
    CPolygon scratch;
    return ReadContent(file, scratch);
}
