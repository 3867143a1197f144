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

} // namespace foedit::test
