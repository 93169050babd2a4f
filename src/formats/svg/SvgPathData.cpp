#include "formats/svg/SvgPathData.h"

#include <svgpp/adapter/path.hpp>
#include <svgpp/parser/grammar/path_data.hpp>

#include "formats/svg/SvgArc.h"
#include "formats/svg/SvgNumbers.h"

namespace nestrix {

namespace {

// NOLINTBEGIN(readability-identifier-naming): the library has named these operations

/// Absolute coordinates, no shorthands, no quadratic curves; but arcs stay arcs.
struct SPathPolicy : svgpp::policy::path::minimal {
    static const bool arc_as_cubic_bezier = false;
};

using CAbsolute = svgpp::tag::coordinate::absolute;

/// Takes what the grammar finds.
class CPathCollector {
public:
    explicit CPathCollector(size_t nMostStretches) : m_nMostStretches(nMostStretches) {}

    void path_move_to(double x, double y, CAbsolute) {
        m_Start = {x, y};
        m_At = m_Start;
        m_bDrawing = false;
    }
    void path_line_to(double x, double y, CAbsolute) { Add(SLineTo{{x, y}}, {x, y}); }
    void path_cubic_bezier_to(double x1, double y1, double x2, double y2, double x, double y, CAbsolute) {
        Add(SCurveTo{{x1, y1}, {x2, y2}, {x, y}}, {x, y});
    }
    void path_elliptical_arc_to(double first, double second, double degrees, bool bLarge, bool bForward,
                                double x, double y, CAbsolute) {
        const SPoint end{x, y};
        if (end != m_At) {
            Add(StretchOf(m_At, {first, second, degrees, bLarge, bForward}, end), end);
        }
    }
    void path_close_subpath() {
        if (m_bDrawing) {
            m_Data.m_Paths.back().m_bClosed = true;
        }
        m_bDrawing = false;
        m_At = m_Start;
    }
    void path_exit() {}

    [[nodiscard]] SSvgPathData& Data() { return m_Data; }

private:
    void Add(const CStretch& stretch, SPoint end) {
        m_At = end;
        if (m_nStretches == m_nMostStretches) {
            m_Data.m_bTooMany = true;
            return;
        }
        if (!m_bDrawing) {  // what follows a closed subpath begins where that did
            m_Data.m_Paths.push_back({m_Start, {}, false});
            m_bDrawing = true;
        }
        m_Data.m_Paths.back().m_Stretches.push_back(stretch);
        ++m_nStretches;
    }

    size_t m_nMostStretches;
    size_t m_nStretches = 0;
    SPoint m_Start;
    SPoint m_At;
    bool m_bDrawing = false;
    SSvgPathData m_Data;
};

// NOLINTEND(readability-identifier-naming)

using CAdapter = svgpp::path_adapter<CPathCollector, SPathPolicy, double>;
using CEvents = svgpp::detail::path_adapter_path_events_policy<CAdapter, SPathPolicy, double>;
using CGrammar = svgpp::path_data_grammar<char const*, CAdapter, double, CEvents>;

}  // namespace

SSvgPathData ParsePathData(std::string_view text, size_t nMostStretches) {
    static const CGrammar s_Grammar;
    CPathCollector collector(nMostStretches);
    CAdapter adapter(collector);
    const size_t nSound = SoundNumbersUpTo(text);
    char const* pAt = text.data();
    boost::spirit::qi::phrase_parse(pAt, text.data() + nSound, s_Grammar(boost::phoenix::ref(adapter)),
                                    CGrammar::skipper_type());
    SSvgPathData data = std::move(collector.Data());
    data.m_nUnderstood = static_cast<size_t>(pAt - text.data());
    return data;
}

}  // namespace nestrix
