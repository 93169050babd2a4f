#include "batch/Png.h"

#include <cairo.h>
#include <librsvg/rsvg.h>

#include <algorithm>
#include <memory>

namespace nestrix {

namespace {

struct SUnref {
    void operator()(RsvgHandle* pHandle) const { g_object_unref(pHandle); }
    void operator()(cairo_surface_t* pSurface) const { cairo_surface_destroy(pSurface); }
    void operator()(cairo_t* pContext) const { cairo_destroy(pContext); }
};

cairo_status_t Append(void* pContent, const unsigned char* pData, unsigned int nBytes) {
    static_cast<std::string*>(pContent)->append(reinterpret_cast<const char*>(pData), nBytes);
    return CAIRO_STATUS_SUCCESS;
}

std::string TakeMessage(GError* pError) {
    const std::string message = pError != nullptr ? pError->message : "it cannot be drawn";
    g_clear_error(&pError);
    return message;
}

}  // namespace

std::string DrawPng(const std::string& svg, int nPixels, std::string& fault) {
    GError* pError = nullptr;
    const auto* const pText = reinterpret_cast<const guint8*>(svg.data());
    const std::unique_ptr<RsvgHandle, SUnref> handle(rsvg_handle_new_from_data(pText, svg.size(), &pError));
    gdouble width = 0.0;
    gdouble height = 0.0;
    if (handle == nullptr ||
        rsvg_handle_get_intrinsic_size_in_pixels(handle.get(), &width, &height) == FALSE ||
        !(width > 0.0 && height > 0.0)) {
        fault = TakeMessage(pError);
        return {};
    }
    const double factor = nPixels / std::max(width, height);
    const RsvgRectangle page{0.0, 0.0, std::max(1.0, width * factor), std::max(1.0, height * factor)};
    const std::unique_ptr<cairo_surface_t, SUnref> surface(cairo_image_surface_create(
        CAIRO_FORMAT_ARGB32, static_cast<int>(page.width + 0.5), static_cast<int>(page.height + 0.5)));
    const std::unique_ptr<cairo_t, SUnref> context(cairo_create(surface.get()));
    if (rsvg_handle_render_document(handle.get(), context.get(), &page, &pError) == FALSE) {
        fault = TakeMessage(pError);
        return {};
    }
    std::string content;
    const cairo_status_t status = cairo_surface_write_to_png_stream(surface.get(), Append, &content);
    fault = status == CAIRO_STATUS_SUCCESS ? "" : cairo_status_to_string(status);
    return fault.empty() ? content : std::string();
}

}  // namespace nestrix
