#pragma once

#include <gtest/gtest.h>

#include <ostream>
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

/// One fault to be planted into a sound text.
struct STextFault {
    std::string m_Part;
    std::string m_Other;    ///< what takes its place
    std::string m_Message;  ///< part of what is said then
};

/// How a fault shows in a test's output: by what it puts in.
void PrintTo(const STextFault& fault, std::ostream* pStream);

/// The same in the form that a test's name allows.
[[nodiscard]] std::string FaultTestName(const testing::TestParamInfo<STextFault>& info);

/// A text with `part` replaced by `other`; it must be there.
[[nodiscard]] std::string Replaced(std::string text, const std::string& part, const std::string& other);

}  // namespace nestrix::support
