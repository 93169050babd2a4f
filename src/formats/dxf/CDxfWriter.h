#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "packing/SPiece.h"

namespace nestrix {

/// Writes the groups of a DXF file, and gives handles to what needs them.
class CDxfWriter {
public:
    /// What names an object in the file.
    using CHandle = uint64_t;

    explicit CDxfWriter(CHandle firstHandle = 1) : m_NextHandle(firstHandle) {}

    [[nodiscard]] CHandle NewHandle() { return m_NextHandle++; }

    /// The handle after all that were given.
    [[nodiscard]] CHandle NextHandle() const { return m_NextHandle; }

    CDxfWriter& Text(int nCode, std::string_view value);
    CDxfWriter& Whole(int nCode, int64_t nValue);
    CDxfWriter& Real(int nCode, double value);
    CDxfWriter& Handle(int nCode, CHandle handle);
    /// A point in the plane: its x with the code, its y and z with the codes 10 and 20 above.
    CDxfWriter& Point(int nCode, SPoint point);
    /// The same without z.
    CDxfWriter& FlatPoint(int nCode, SPoint point);

    /// What others wrote.
    void Append(std::string_view groups) { m_Document.append(groups); }

    void BeginSection(std::string_view name) { Text(0, "SECTION").Text(2, name); }
    void EndSection() { Text(0, "ENDSEC"); }

    /// All that was written; nothing is left.
    [[nodiscard]] std::string Take() { return std::exchange(m_Document, {}); }

private:
    std::string m_Document;
    CHandle m_NextHandle;
};

}  // namespace nestrix
