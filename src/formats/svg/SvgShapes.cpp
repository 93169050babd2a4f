#include "formats/svg/SvgShapes.h"

#include <algorithm>
#include <numbers>

namespace nestrix {

namespace {

constexpr double PI = std::numbers::pi;

/// A quarter of an ellipse, forward from where the angle is `from`.
SArcTo Quarter(SPoint centre, double radiusX, double radiusY, double from, SPoint end) {
    return {centre, {radiusX, 0.0}, {0.0, radiusY}, from, PI / 2.0, end};
}

std::optional<SPath> Ellipse(const CSvgElement& element, double radiusX, double radiusY) {
    if (radiusX < 0.0 || radiusY < 0.0) {
        element.Fault("a radius is negative");
    }
    if (radiusX <= 0.0 || radiusY <= 0.0) {
        return std::nullopt;
    }
    const SPoint centre{element.Length("cx", EDirection::ACROSS), element.Length("cy", EDirection::DOWN)};
    const SPoint start{centre.m_X + radiusX, centre.m_Y};
    return SPath{start, {SArcTo{centre, {radiusX, 0.0}, {0.0, radiusY}, 0.0, 2.0 * PI, start}}, true};
}

std::optional<SPath> Circle(const CSvgElement& element) {
    const double radius = element.Length("r", EDirection::NEITHER);
    return Ellipse(element, radius, radius);
}

std::optional<SPath> Ellipse(const CSvgElement& element) {
    const std::optional<double> radiusX = element.FindLength("rx", EDirection::ACROSS);
    const std::optional<double> radiusY = element.FindLength("ry", EDirection::DOWN);
    return Ellipse(element, radiusX ? *radiusX : radiusY.value_or(0.0),
                   radiusY ? *radiusY : radiusX.value_or(0.0));
}

/// Four sides, and four quarters of an ellipse where the corners are round.
SPath RoundRect(SPoint low, SPoint high, double radiusX, double radiusY) {
    const auto [left, top] = low;
    const auto [right, bottom] = high;
    if (radiusX <= 0.0 || radiusY <= 0.0) {
        return {low, {SLineTo{{right, top}}, SLineTo{high}, SLineTo{{left, bottom}}}, true};
    }
    SPath path{{left + radiusX, top}, {}, true};
    const auto lineTo = [&path](double x, double y) {
        if (EndOf(path) != SPoint{x, y}) {
            path.m_Stretches.push_back(SLineTo{{x, y}});
        }
    };
    const auto turn = [&](double centreX, double centreY, double from, double x, double y) {
        path.m_Stretches.push_back(Quarter({centreX, centreY}, radiusX, radiusY, from, {x, y}));
    };
    lineTo(right - radiusX, top);
    turn(right - radiusX, top + radiusY, -PI / 2.0, right, top + radiusY);
    lineTo(right, bottom - radiusY);
    turn(right - radiusX, bottom - radiusY, 0.0, right - radiusX, bottom);
    lineTo(left + radiusX, bottom);
    turn(left + radiusX, bottom - radiusY, PI / 2.0, left, bottom - radiusY);
    lineTo(left, top + radiusY);
    turn(left + radiusX, top + radiusY, PI, left + radiusX, top);
    return path;
}

std::optional<SPath> Rect(const CSvgElement& element) {
    const double x = element.Length("x", EDirection::ACROSS);
    const double y = element.Length("y", EDirection::DOWN);
    const double width = element.Length("width", EDirection::ACROSS);
    const double height = element.Length("height", EDirection::DOWN);
    if (width < 0.0 || height < 0.0) {
        element.Fault("width or height is negative");
    }
    if (width <= 0.0 || height <= 0.0) {
        return std::nullopt;
    }
    const std::optional<double> radiusX = element.FindLength("rx", EDirection::ACROSS);
    const std::optional<double> radiusY = element.FindLength("ry", EDirection::DOWN);
    return RoundRect({x, y}, {x + width, y + height},
                     std::min(radiusX ? *radiusX : radiusY.value_or(0.0), width / 2.0),
                     std::min(radiusY ? *radiusY : radiusX.value_or(0.0), height / 2.0));
}

std::optional<SPath> Line(const CSvgElement& element) {
    const SPoint start{element.Length("x1", EDirection::ACROSS), element.Length("y1", EDirection::DOWN)};
    const SPoint end{element.Length("x2", EDirection::ACROSS), element.Length("y2", EDirection::DOWN)};
    return start == end ? std::nullopt : std::optional(SPath{start, {SLineTo{end}}, false});
}

std::optional<SPath> Points(const CSvgElement& element, bool bClosed) {
    const std::string_view text = element.Text("points");
    if (text.find_first_not_of(" \t\r\n") == text.npos) {
        return std::nullopt;
    }
    const std::optional<std::vector<SPoint>> points = ParsePoints(text);
    if (!points) {
        element.Fault("points are no pairs of numbers: " + Quoted(text));
        return std::nullopt;
    }
    SPath path{points->front(), {}, bClosed};
    for (auto point = points->begin() + 1; point != points->end(); ++point) {
        path.m_Stretches.push_back(SLineTo{*point});
    }
    return path.m_Stretches.empty() ? std::nullopt : std::optional(std::move(path));
}

}  // namespace

std::optional<SPath> ShapeOf(std::string_view name, const CSvgElement& element) {
    if (name == "rect") {
        return Rect(element);
    }
    if (name == "circle") {
        return Circle(element);
    }
    if (name == "ellipse") {
        return Ellipse(element);
    }
    if (name == "line") {
        return Line(element);
    }
    if (name == "polyline" || name == "polygon") {
        return Points(element, name == "polygon");
    }
    return std::nullopt;
}

}  // namespace nestrix
