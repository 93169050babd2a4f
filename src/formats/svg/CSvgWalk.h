#pragma once

#include <string_view>
#include <unordered_map>

#include "formats/svg/CSvgElement.h"
#include "formats/svg/CSvgFile.h"
#include "formats/svg/CSvgFindings.h"

namespace nestrix {

/// Walks through an SVG file from the outermost element inwards, resolves its groups and copies, and draws
/// what is to be seen. Without recursion, and within bounds: a file can hold a million groups in each other,
/// and a few lines of copies of copies amount to more elements than there are atoms.
class CSvgWalk {
public:
    /// @param nMostPoints see ReadSvg.
    CSvgWalk(const CSvgFile& file, size_t nMostPoints, CSvgFindings& findings, SDrawing& drawing)
        : m_File(file), m_Findings(findings), m_Drawing(drawing), m_nPointsLeft(nMostPoints) {}

    void Run();

private:
    /// What is visited inside an element.
    enum class EChildren {
        ALL,
        ONE,  ///< of its children
        COPY  ///< what a "use" shows, which stands elsewhere in the file
    };

    /// An element whose children are being visited.
    struct SFrame {
        pugi::xml_node m_Element;
        pugi::xml_node m_Next;  ///< the child that comes next; none when all are done
        SSvgContext m_Inside;   ///< what the children have from here
        EChildren m_eChildren = EChildren::ALL;
    };

    void Visit(pugi::xml_node node, const SSvgContext& around, bool bCopied);
    void Descend(pugi::xml_node node, const SSvgContext& inside);
    void DescendIntoSwitch(pugi::xml_node node, const SSvgContext& inside);
    void Copy(const CSvgElement& use);
    void DrawShape(std::string_view name, const CSvgElement& element);
    void DrawPathData(const CSvgElement& element);
    void Draw(const CSvgElement& element, const SPath& path);
    void WriteText(const CSvgElement& element);
    void Push(const SFrame& frame);
    bool Afford(pugi::xml_node node, size_t nPoints);
    [[nodiscard]] bool IsBeingDrawn(pugi::xml_node node) const;
    [[nodiscard]] pugi::xml_node FindById(std::string_view id);

    const CSvgFile& m_File;
    CSvgFindings& m_Findings;
    SDrawing& m_Drawing;
    std::vector<SFrame> m_Frames;
    std::unordered_map<std::string_view, pugi::xml_node> m_ById;  ///< filled when first asked
    size_t m_nPointsLeft;
    size_t m_nCopies = 0;  ///< that are being drawn, one inside the other
    bool m_bTooDeep = false;
};

}  // namespace nestrix
