#pragma once

#include <new>
#include <optional>
#include <string>
#include <utility>

#include "formats/json/CJsonDocument.h"
#include "formats/json/CJsonFindings.h"
#include "formats/json/SReading.h"

namespace nestrix {

/// Reads a file whose outermost value `read` makes something of, saying what is wrong with it. Never throws.
template <class T, class TRead>
[[nodiscard]] SReading<T> ReadJsonFile(const std::string& path, const TRead& read) {
    try {
        SReading<CJsonDocument> document = CJsonDocument::Read(path);
        if (!document.m_Value) {
            return {std::nullopt, std::move(document.m_Findings)};
        }
        CJsonFindings findings(path);
        T value = read(document.m_Value->Root(), findings);
        return findings.Sum(std::move(value));
    } catch (const std::bad_alloc&) {
        // What was taken is given back by now, so there is room for a message.
        return {std::nullopt,
                {{path, 0, SFinding::ESeverity::FAULT, "there is not enough memory to read it"}}};
    }
}

}  // namespace nestrix
