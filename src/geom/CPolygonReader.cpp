#include "geom/CPolygonReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <limits>

#include "base/CNumericLocale.h"

namespace nestrix {

namespace {

bool IsFinite(const mgVector3& position) {
    return std::isfinite(position.x) && std::isfinite(position.y);
}

}  // namespace

CPolygonReader::CPolygonReader(char const* path) {
    // Non-blocking, since opening a pipe without a writer would hang.
    const int nDescriptor = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (nDescriptor < 0) {
        m_Fault = std::strerror(errno);
        return;
    }
    struct stat status = {};
    if (fstat(nDescriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(nDescriptor);
        m_Fault = "not a regular file";
        return;
    }
    m_pText.reset(fdopen(nDescriptor, "r"));
    if (m_pText == nullptr) {
        const int nError = errno;
        close(nDescriptor);  // first: there may be no memory for the text
        m_Fault = std::strerror(nError);
    }
}

void CPolygonReader::Read(CPolygon& polygon) {
    const CNumericLocale numericLocale;
    m_nAnnounced = ReadCount();
    m_Places.m_nOutline = ftello(m_pText.get());
    ReadVertices(m_nAnnounced, polygon);
    m_Places.m_nBox = ftello(m_pText.get());
    ReadBoundingBox(polygon);
    m_Places.m_nRest = ftello(m_pText.get());
}

void CPolygonReader::NoteFault(off_t nAt, const std::string& fault) {
    if (m_Fault.empty()) {
        m_Fault = fault;
        m_Places.m_nFault = nAt;
    }
}

/// Wider than the count, since a number too large for it would be read as another one.
int CPolygonReader::ReadCount() {
    long long nCount = 0;
    if (std::fscanf(m_pText.get(), "%lld", &nCount) != 1) {
        NoteFault(0, "it does not begin with the number of vertices");
    } else if (nCount < 3) {
        NoteFault(0, "it has fewer than three vertices");
    } else if (nCount > std::numeric_limits<int>::max()) {
        NoteFault(0, "the number of vertices is too large");
        return 0;
    }
    return static_cast<int>(std::max(nCount, 0LL));
}

void CPolygonReader::ReadVertices(int nVertices, CPolygon& polygon) {
    for (int i = 0; i < nVertices; ++i) {
        CPoint point;
        mgVector3& position = point.m_Position;
        if (std::fscanf(m_pText.get(), "%f,%f", &position.x, &position.y) != 2) {
            NoteFault(ftello(m_pText.get()), "vertex " + std::to_string(i + 1) + " of " +
                                                 std::to_string(nVertices) + " is not a pair \"x,y\"");
            if (HasRoomFor(nVertices)) {
                polygon.m_Points.push_back(point);
                polygon.m_Points.resize(polygon.m_Points.size() + static_cast<size_t>(nVertices - i - 1));
            }
            return;
        }
        if (!IsFinite(position) && m_Fault.empty()) {
            NoteFault(ftello(m_pText.get()) - 1, "vertex " + std::to_string(i + 1) + " is not finite");
        }
        polygon.m_Points.push_back(point);
        m_nFound = i + 1;
    }
}

/// Whether the whole text is long enough for so many vertices. What is not text, as in a file that was
/// made long without having been written, does not count.
bool CPolygonReader::HasRoomFor(int nVertices) {
    constexpr off_t SHORTEST_VERTEX = 4;  // "1,2 "
    const off_t nAt = ftello(m_pText.get());
    off_t nMissing = SHORTEST_VERTEX * nVertices - nAt;
    std::array<char, 4096> block;
    for (size_t nRead = block.size(); nMissing > 0 && nRead == block.size();) {
        nRead = std::fread(block.data(), 1, block.size(), m_pText.get());
        const void* const pEnd = std::memchr(block.data(), '\0', nRead);
        nRead = pEnd == nullptr ? nRead : static_cast<size_t>(static_cast<const char*>(pEnd) - block.data());
        nMissing -= static_cast<off_t>(nRead);
    }
    (void)fseeko(m_pText.get(), nAt, SEEK_SET);
    return nMissing <= 0;
}

/// The upper-right corner first: the format's deliberate order.
void CPolygonReader::ReadBoundingBox(CPolygon& polygon) {
    mgVector3 max;
    mgVector3 min;
    const int nRead = std::fscanf(m_pText.get(), "\n;%f,%f\n%f,%f", &max.x, &max.y, &min.x, &min.y);
    polygon.m_BoundingBoxMax = max;
    polygon.m_BoundingBoxMin = min;
    if (nRead != 4) {
        NoteFault(m_Places.m_nBox,
                  "no semicolon with the two corners of the bounding box follows the vertices");
    } else if (!IsFinite(max) || !IsFinite(min)) {
        NoteFault(m_Places.m_nBox, "the bounding box is not finite");
    } else if (max.x < min.x || max.y < min.y) {
        NoteFault(m_Places.m_nBox, "the bounding box does not name its upper-right corner first");
    }
}

}  // namespace nestrix

bool CPolygon::ReadPolygon(char const* path) {
    {
        nestrix::CPolygonReader reader(path);
        if (!reader.IsOpen()) {
            std::printf("Couldn't read polyon file %s\n", path);
            return false;
        }
        reader.Read(*this);
    }
    Process();
    return true;
}
