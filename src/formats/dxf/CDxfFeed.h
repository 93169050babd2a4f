#pragma once

#include <dxflib/dl_creationinterface.h>
#include <dxflib/dl_dxf.h>

#include <istream>
#include <streambuf>
#include <string>
#include <string_view>

namespace nestrix {

/// Gives dxflib one group after another. It is not left alone with a file, since it waits for ever behind an
/// over-long line, allocates as much as any number of the file says, and does not tell in which line it is.
class CDxfFeed {
public:
    /// @param creation hears of what the groups mean: of a record when the next one is named.
    explicit CDxfFeed(DL_CreationInterface& creation);

    /// The longest value that is passed on whole.
    static constexpr size_t LONGEST_VALUE = 1000;

    void Give(int nCode, std::string_view value);

private:
    /// Shows a stream one string.
    class CBuffer : public std::streambuf {
    public:
        void Show(std::string& text) { setg(text.data(), text.data(), text.data() + text.size()); }
    };

    DL_CreationInterface& m_Creation;
    std::string m_Group;
    CBuffer m_Buffer;
    std::istream m_Stream{&m_Buffer};
    DL_Dxf m_Dxf;
};

}  // namespace nestrix
