#include "formats/json/JsonKind.h"

#include "formats/json/ReadJsonFile.h"

namespace nestrix {

namespace {

EJsonKind FindKind(const CJsonValue& root, CJsonFindings& findings) {
    const auto has = [&root](char const* pName) { return root.Find(pName).has_value(); };
    if (has("placements") || has("format")) {
        return EJsonKind::PACKING;
    }
    if (has("items") || has("strip_height")) {
        return EJsonKind::INSTANCE;
    }
    if (!has("pieces")) {
        findings.Miss(root,
                      "it is no packing (which has \"placements\"), no job (which has \"pieces\") and no "
                      "published instance (which has \"items\")");
    }
    return EJsonKind::JOB;
}

}  // namespace

SReading<EJsonKind> KindOf(const std::string& path) {
    return ReadJsonFile<EJsonKind>(path, FindKind);
}

}  // namespace nestrix
