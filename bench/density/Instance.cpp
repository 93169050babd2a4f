#include "bench/density/Instance.h"

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

namespace nestrix::bench {

SInstance ReadInstance(const std::string& path) {
    std::ifstream file(path);
    file.exceptions(std::ios::failbit | std::ios::badbit);
    const nlohmann::json json = nlohmann::json::parse(file);
    SInstance instance{std::filesystem::path(path).stem().string(), {json.at("strip_height"), 0.0, 0.0}, {}};
    for (const nlohmann::json& item : json.at("items")) {
        SPiece piece;
        piece.m_Name = item.at("id").dump();
        piece.m_nQuantity = item.at("demand");
        piece.m_Turns.m_bAny = !item.contains("allowed_orientations");
        if (!piece.m_Turns.m_bAny) {
            piece.m_Turns.m_Degrees = item.at("allowed_orientations").get<std::vector<double>>();
        }
        for (const nlohmann::json& point : item.at("shape").at("data")) {
            const double x = point.at(0);
            piece.m_Shape.m_Outline.push_back({point.at(1), -x});
        }
        instance.m_Pieces.push_back(std::move(piece));
    }
    return instance;
}

}  // namespace nestrix::bench
