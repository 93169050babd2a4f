#include "formats/svg/SvgViewport.h"

#include <algorithm>

#include "base/NumberText.h"

namespace nestrix {

namespace {

/// The "viewBox", if there is one that shows anything.
std::optional<SSvgBox> FindViewBox(const CSvgElement& viewport) {
    const std::string_view text = viewport.Text("viewBox");
    if (text.empty()) {
        return std::nullopt;
    }
    const std::optional<SSvgBox> box = ParseViewBox(text);
    if (!box || !(box->m_Width > 0.0) || !(box->m_Height > 0.0)) {
        viewport.Fault("viewBox is no place with a size: " + Quoted(text));
        return std::nullopt;
    }
    return box;
}

SSvgAspect AspectOf(const CSvgElement& viewport) {
    const std::string_view text = viewport.Text("preserveAspectRatio");
    const std::optional<SSvgAspect> aspect = ParseAspect(text);
    if (!text.empty() && !aspect) {
        viewport.Fault("preserveAspectRatio is not understood: " + Quoted(text));
    }
    return aspect.value_or(SSvgAspect());
}

/// From a box to a viewport at 0, 0.
SMap Fitting(const SSvgBox& box, double width, double height, const SSvgAspect& aspect) {
    double scaleX = width / box.m_Width;
    double scaleY = height / box.m_Height;
    if (!aspect.m_bStretched) {
        scaleX = aspect.m_bSlice ? std::max(scaleX, scaleY) : std::min(scaleX, scaleY);
        scaleY = scaleX;
    }
    const double roomX = width - scaleX * box.m_Width;
    const double roomY = height - scaleY * box.m_Height;
    return {scaleX,
            0.0,
            0.0,
            scaleY,
            (aspect.m_bStretched ? 0.0 : aspect.m_AlongX * roomX) - scaleX * box.m_X,
            (aspect.m_bStretched ? 0.0 : aspect.m_AlongY * roomY) - scaleY * box.m_Y};
}

SMap TurnedOver(double height) {
    return {1.0, 0.0, 0.0, -1.0, 0.0, height};
}

/// A side of the page, if it is told and has a length.
std::optional<SSvgLength> FindSide(const CSvgElement& svg, char const* pName) {
    const std::string_view text = svg.Text(pName);
    if (text.empty() || text == "auto") {
        return std::nullopt;
    }
    const std::optional<SSvgLength> side = ParseLength(text);
    if (!side || !(side->m_Value > 0.0)) {
        svg.Fault(std::string(pName) + " of the page is no length above 0: " + Quoted(text));
        return std::nullopt;
    }
    return side;
}

bool IsPhysical(const std::optional<SSvgLength>& side) {
    return side && side->m_eKind == SSvgLength::EKind::MILLIMETRE;
}

/// In user units; nothing for a share of a window that nobody knows.
std::optional<double> Pixels(const std::optional<SSvgLength>& side) {
    if (!side || side->m_eKind == SSvgLength::EKind::PERCENT) {
        return std::nullopt;
    }
    return UserUnits(*side, EDirection::NEITHER, SSvgContext());
}

std::optional<double> Millimetres(const std::optional<SSvgLength>& side) {
    if (IsPhysical(side)) {
        return side->m_Value;
    }
    const std::optional<double> pixels = Pixels(side);
    return pixels ? std::optional(*pixels * MILLIMETRES_IN_A_PIXEL) : std::nullopt;
}

/// The page in millimetres. A side that is not told follows from the other and the box.
void MeasurePage(const CSvgElement& svg, const std::optional<SSvgBox>& box, std::optional<double> width,
                 std::optional<double> height, SSvgContext& inside) {
    if (!box) {
        inside.m_Width = width.value_or(0.0) / MILLIMETRES_IN_A_PIXEL;
        inside.m_Height = height.value_or(0.0) / MILLIMETRES_IN_A_PIXEL;
        inside.m_Map = TurnedOver(height.value_or(0.0)) *
                       SMap{MILLIMETRES_IN_A_PIXEL, 0.0, 0.0, MILLIMETRES_IN_A_PIXEL, 0.0, 0.0};
        return;
    }
    const double scale = width ? *width / box->m_Width : *height / box->m_Height;
    const double pageWidth = width.value_or(scale * box->m_Width);
    const double pageHeight = height.value_or(scale * box->m_Height);
    inside.m_Map = TurnedOver(pageHeight) * Fitting(*box, pageWidth, pageHeight, AspectOf(svg));
}

/// Not what they stand for: that is the reader's choice.
void MentionUserUnits(pugi::xml_node svg, const SSvgContext& inside, CSvgFindings& findings) {
    std::string message = "the file names no unit of length, only user units";
    if (inside.m_Width > 0.0 && inside.m_Height > 0.0) {
        message += ", of which the page measures " + ShortestDigits(inside.m_Width) + " by " +
                   ShortestDigits(inside.m_Height);
    }
    findings.Add(svg, SFinding::ESeverity::NOTE, message);
}

}  // namespace

SSvgPage ReadPage(pugi::xml_node svg, CSvgFindings& findings) {
    SSvgPage page;
    SSvgContext& inside = page.m_Inside;
    const SSvgContext outside;
    const CSvgElement element(svg, outside, findings);
    const std::optional<SSvgBox> box = FindViewBox(element);
    const std::optional<SSvgLength> width = FindSide(element, "width");
    const std::optional<SSvgLength> height = FindSide(element, "height");
    if (box) {
        inside.m_Width = box->m_Width;
        inside.m_Height = box->m_Height;
    }
    if (IsPhysical(width) || IsPhysical(height)) {
        page.m_Unit = EUnit::MILLIMETRE;
        MeasurePage(element, box, Millimetres(width), Millimetres(height), inside);
        return page;
    }
    if (box) {  // how large a window it is shown in does not matter
        inside.m_Map = TurnedOver(box->m_Height) * SMap{1.0, 0.0, 0.0, 1.0, -box->m_X, -box->m_Y};
    } else {
        inside.m_Width = Pixels(width).value_or(0.0);
        inside.m_Height = Pixels(height).value_or(0.0);
        inside.m_Map = TurnedOver(inside.m_Height);
    }
    MentionUserUnits(svg, inside, findings);
    return page;
}

SSvgContext InsideViewport(const CSvgElement& viewport, const CSvgElement& sizes) {
    SSvgContext inside = viewport.Context();
    const auto side = [&](char const* pName, EDirection eDirection, double whole) {
        const std::optional<double> told = sizes.FindLength(pName, eDirection);
        return told ? *told : viewport.FindLength(pName, eDirection).value_or(whole);
    };
    const double width = side("width", EDirection::ACROSS, inside.m_Width);
    const double height = side("height", EDirection::DOWN, inside.m_Height);
    const SMap place{
        1.0, 0.0, 0.0, 1.0, viewport.Length("x", EDirection::ACROSS), viewport.Length("y", EDirection::DOWN)};
    inside.m_Map = inside.m_Map * place;
    inside.m_Width = width;
    inside.m_Height = height;
    if (const std::optional<SSvgBox> box = FindViewBox(viewport)) {
        inside.m_Width = box->m_Width;
        inside.m_Height = box->m_Height;
        // Without a size around it there is none to be fitted into.
        if (width > 0.0 && height > 0.0) {
            inside.m_Map = inside.m_Map * Fitting(*box, width, height, AspectOf(viewport));
        }
    }
    return inside;
}

}  // namespace nestrix
