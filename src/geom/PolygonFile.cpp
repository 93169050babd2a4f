#include "PolygonFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>

#include "NumericLocale.h"

namespace {

struct SCloseFile {
    void operator()(std::FILE* pFile) const { std::fclose(pFile); }
};

struct SOpenedFile {
    std::unique_ptr<std::FILE, SCloseFile> m_pStream;  ///< null when the file could not be opened
    std::string m_Fault;                               ///< why it could not
};

/// Opens a regular file. Folders, pipes and devices are refused here: reading from them fails late, waits
/// for ever or never ends. Non-blocking, since opening a pipe without a writer would hang.
SOpenedFile OpenPolygonFile(char const* path) {
    const int nDescriptor = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (nDescriptor < 0) {
        return {nullptr, std::strerror(errno)};
    }
    struct stat status = {};
    if (fstat(nDescriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(nDescriptor);
        return {nullptr, "not a regular file"};
    }
    SOpenedFile file;
    file.m_pStream.reset(fdopen(nDescriptor, "r"));
    if (file.m_pStream == nullptr) {
        const int nError = errno;
        close(nDescriptor);  // first: there may be no memory for the text
        file.m_Fault = std::strerror(nError);
    }
    return file;
}

bool IsFinite(const mgVector3& position) {
    return std::isfinite(position.x) && std::isfinite(position.y);
}

/// Reads the text of one polygon from front to back, as far as it goes, and notes where what is.
class CPolygonReader {
public:
    explicit CPolygonReader(std::FILE* pText) : m_pText(pText) {}

    void Read(CPolygon& polygon) {
        const CNumericLocale numericLocale;
        const int nVertices = ReadCount();
        m_nOutlineAt = ftello(m_pText);
        ReadVertices(nVertices, polygon);
        m_nBoxAt = ftello(m_pText);
        ReadBoundingBox(polygon);
        m_nRestAt = ftello(m_pText);
    }

    /// Fills in everything but the polygon. Once, after Read.
    void Report(SPolygonFile& report) {
        report.m_Fault = m_Fault;
        std::rewind(m_pText);
        if (!m_Fault.empty()) {
            report.m_nFaultLine = LineFrom(m_nFaultAt);
            return;
        }
        report.m_nOutlineLine = LineFrom(m_nOutlineAt);
        report.m_nBoxLine = LineFrom(m_nBoxAt);
        const int nLine = LineFrom(m_nRestAt);
        report.m_nRestLine = std::feof(m_pText) != 0 ? 0 : nLine;
    }

private:
    void NoteFault(off_t nAt, const std::string& fault) {
        if (m_Fault.empty()) {
            m_Fault = fault;
            m_nFaultAt = nAt;
        }
    }

    /// Wider than the count, since a number too large for it would be read as another one.
    int ReadCount() {
        long long nCount = 0;
        if (std::fscanf(m_pText, "%lld", &nCount) != 1) {
            NoteFault(0, "it does not begin with the number of vertices");
        } else if (nCount < 3) {
            NoteFault(0, "it has fewer than three vertices");
        } else if (nCount > std::numeric_limits<int>::max()) {
            NoteFault(0, "the number of vertices is too large");
            return 0;
        }
        return static_cast<int>(std::max(nCount, 0LL));
    }

    void ReadVertices(int nVertices, CPolygon& polygon) {
        for (int i = 0; i < nVertices; ++i) {
            CPoint point;
            mgVector3& position = point.m_Position;
            if (std::fscanf(m_pText, "%f,%f", &position.x, &position.y) != 2) {
                NoteFault(ftello(m_pText), "vertex " + std::to_string(i + 1) + " of " +
                                               std::to_string(nVertices) + " is not a pair \"x,y\"");
                if (HasRoomFor(nVertices)) {
                    polygon.m_Points.push_back(point);
                    polygon.m_Points.resize(polygon.m_Points.size() + static_cast<size_t>(nVertices - i - 1));
                }
                return;
            }
            if (!IsFinite(position) && m_Fault.empty()) {
                NoteFault(ftello(m_pText) - 1, "vertex " + std::to_string(i + 1) + " is not finite");
            }
            polygon.m_Points.push_back(point);
        }
    }

    /// Whether the whole text is long enough for so many vertices. What is not text, as in a file that was
    /// made long without having been written, does not count.
    bool HasRoomFor(int nVertices) {
        constexpr off_t SHORTEST_VERTEX = 4;  // "1,2 "
        const off_t nAt = ftello(m_pText);
        off_t nMissing = SHORTEST_VERTEX * nVertices - nAt;
        std::array<char, 4096> block;
        for (size_t nRead = block.size(); nMissing > 0 && nRead == block.size();) {
            nRead = std::fread(block.data(), 1, block.size(), m_pText);
            const void* const pEnd = std::memchr(block.data(), '\0', nRead);
            nRead =
                pEnd == nullptr ? nRead : static_cast<size_t>(static_cast<const char*>(pEnd) - block.data());
            nMissing -= static_cast<off_t>(nRead);
        }
        (void)fseeko(m_pText, nAt, SEEK_SET);
        return nMissing <= 0;
    }

    /// The upper-right corner first: the format's deliberate order.
    void ReadBoundingBox(CPolygon& polygon) {
        mgVector3 max;
        mgVector3 min;
        const int nRead = std::fscanf(m_pText, "\n;%f,%f\n%f,%f", &max.x, &max.y, &min.x, &min.y);
        polygon.m_BoundingBoxMax = max;
        polygon.m_BoundingBoxMin = min;
        if (nRead != 4) {
            NoteFault(m_nBoxAt, "no semicolon with the two corners of the bounding box follows the vertices");
        } else if (!IsFinite(max) || !IsFinite(min)) {
            NoteFault(m_nBoxAt, "the bounding box is not finite");
        } else if (max.x < min.x || max.y < min.y) {
            NoteFault(m_nBoxAt, "the bounding box does not name its upper-right corner first");
        }
    }

    /// The line of the first character from there on that is not blank. Reads on from where it last stopped.
    int LineFrom(off_t nAt) {
        int c = std::getc(m_pText);
        for (; c != EOF && (m_nPassed < nAt || std::isspace(c) != 0); c = std::getc(m_pText)) {
            ++m_nPassed;
            m_nLine += c == '\n' ? 1 : 0;
        }
        std::ungetc(c, m_pText);
        return m_nLine;
    }

    std::FILE* m_pText;
    std::string m_Fault;  ///< the first one
    off_t m_nFaultAt = 0;
    off_t m_nOutlineAt = 0;
    off_t m_nBoxAt = 0;
    off_t m_nRestAt = 0;
    off_t m_nPassed = 0;
    int m_nLine = 1;
};

}  // namespace

bool CPolygon::ReadPolygon(char const* path) {
    SOpenedFile file = OpenPolygonFile(path);
    if (file.m_pStream == nullptr) {
        std::printf("Couldn't read polyon file %s\n", path);
        return false;
    }
    CPolygonReader(file.m_pStream.get()).Read(*this);
    file.m_pStream.reset();
    Process();
    return true;
}

SPolygonFile ReadPolygonFile(char const* path) {
    SPolygonFile result;
    const SOpenedFile file = OpenPolygonFile(path);
    if (file.m_pStream == nullptr) {
        result.m_Fault = file.m_Fault;
        return result;
    }
    CPolygonReader reader(file.m_pStream.get());
    reader.Read(result.m_Polygon);
    reader.Report(result);
    if (result.m_Fault.empty()) {
        result.m_Polygon.Process();
    }
    return result;
}
