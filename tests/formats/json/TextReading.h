#pragma once

#include <string>
#include <vector>

#include "formats/json/SReading.h"
#include "tests/support/CTemporaryFolder.h"

namespace nestrix::support {

/// Findings as a list, one "line: message" each.
[[nodiscard]] std::string ListOf(const std::vector<SFinding>& findings);

/// Reads a text by way of a file.
template <class T>
[[nodiscard]] SReading<T> ReadText(SReading<T> (*pRead)(const std::string& path), const std::string& text) {
    const CTemporaryFolder folder;
    return pRead(folder.Write("file.json", text));
}

/// What is wrong with a text, as a list; fails the test where a value is there beside faults.
template <class T>
[[nodiscard]] std::string FaultsOf(SReading<T> (*pRead)(const std::string& path), const std::string& text) {
    const SReading<T> reading = ReadText(pRead, text);
    const std::string faults = ListOf(reading.m_Findings);
    return reading.m_Value.has_value() == faults.empty() ? faults : "a value beside faults: " + faults;
}

/// A text with `part` replaced by `other`; it must be there.
[[nodiscard]] std::string Replaced(std::string text, const std::string& part, const std::string& other);

}  // namespace nestrix::support
