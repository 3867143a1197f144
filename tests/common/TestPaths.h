#pragma once

#include <string>
#include <vector>

namespace foedit::test {

// The folder of real XSL-FO documents that nobody here wrote.
std::string corpusDir();
// Every document of the corpus, sorted by name.
std::vector<std::string> corpusFiles();
// The whole file as bytes; throws std::runtime_error when it cannot be read.
std::string readFileBytes(const std::string &path);

// A corpus document's name as a test name: the file name without its extension, with
// "_" for every character that is not a letter or a digit.
std::string corpusTestName(const std::string &path);
// The name generator for INSTANTIATE_TEST_SUITE_P over corpusFiles().
inline constexpr auto corpusParamName = [](const auto &info) { return corpusTestName(info.param); };

} // namespace foedit::test
