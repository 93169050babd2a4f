#include "formats/dxf/CDxfFeed.h"

namespace nestrix {

CDxfFeed::CDxfFeed(DL_CreationInterface& creation) : m_Creation(creation) {
    // Only this operation sets dxflib up. With any other comment, or none, it takes the angles of longer
    // texts for radians, as its own first versions wrote them.
    m_Group = "999\ndxflib " DL_VERSION "\n";
    m_Buffer.Show(m_Group);
    m_Dxf.in(m_Stream, &m_Creation);
}

void CDxfFeed::Give(int nCode, std::string_view value) {
    m_Group.assign(std::to_string(nCode)).append("\n").append(value).append("\n");
    m_Buffer.Show(m_Group);
    m_Stream.clear();
    m_Dxf.readDxfGroups(m_Stream, &m_Creation);
}

}  // namespace nestrix
