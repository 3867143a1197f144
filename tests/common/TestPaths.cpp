#include "common/TestPaths.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace foedit::test {

std::string corpusDir() { return FOEDIT_CORPUS_DIR; }

std::vector<std::string> corpusFiles()
{
    std::vector<std::string> files;
    std::error_code ec;
    for (const auto &entry : std::filesystem::directory_iterator(corpusDir(), ec))
        if (entry.path().extension() == ".fo")
            files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

std::string readFileBytes(const std::string &path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + path);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

std::string corpusTestName(const std::string &path)
{
    std::string name = std::filesystem::path(path).stem().string();
    for (char &c : name) {
        if (!std::isalnum(static_cast<unsigned char>(c)))
            c = '_';
    }
    return name;
}

} // namespace foedit::test
