// The rules that the tree keeps: which file may include which, and how files are named.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "frame/source_text.h"

namespace {

namespace fs = std::filesystem;
const fs::path root = ZORS_SOURCE_DIR;

std::vector<fs::path> sources(const std::vector<std::string>& folders) {
  std::vector<fs::path> all;
  for (const auto& folder : folders)
    for (const auto& file : fs::recursive_directory_iterator(root / folder)) {
      const auto extension = file.path().extension();
      if (file.is_regular_file() &&
          (extension == ".cpp" || extension == ".h" || extension == ".c" || extension == ".S" || extension == ".def"))
        all.push_back(file.path());
    }
  return all;
}

// What the lines #include "..." of a file name.
std::vector<std::string> included(const std::string& text) {
  std::vector<std::string> all;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const std::string start = "#include \"";
    if (line.compare(0, start.size(), start) == 0)
      all.push_back(line.substr(start.size(), line.find('"', start.size()) - start.size()));
  }
  return all;
}

bool mayInclude(const std::string& folder, const std::string& header) {
  return header.starts_with("exports/") || header.starts_with("frame/") || header.starts_with(folder + "/") ||
         header == "zors/types.h" || header == "zorcore.h" ||
         (folder == "frame" && (header == "exports.def" || header == "zors.h"));
}

TEST(Tree, FoldersOfTheLibraryMeetThroughExportsAndTheFrame) {
  int seen = 0;
  for (const fs::path& file : sources({"src"})) {
    const std::string folder = fs::relative(file, root / "src").begin()->string();
    for (const std::string& header : included(tree::read(file))) {
      ++seen;
      EXPECT_TRUE(mayInclude(folder, header)) << fs::relative(file, root).string() << " includes " << header;
    }
  }
  EXPECT_GT(seen, 100);
  EXPECT_FALSE(mayInclude("fir", "fft/fft_spec.h"));
  EXPECT_FALSE(mayInclude("fir", "zors.h"));
  EXPECT_FALSE(mayInclude("fir", "zors/fir.h"));
}

// A name alone says which file of the library is meant, and which of what is built around it.
TEST(Tree, FileNamesAreUnique) {
  for (const auto& folders :
       std::vector<std::vector<std::string>>{{"src"}, {"tests", "bench", "accuracy", "examples"}}) {
    std::map<std::string, std::vector<std::string>> places;
    for (const fs::path& file : sources(folders))
      places[file.filename().string()].push_back(fs::relative(file, root).string());
    for (const auto& [name, paths] : places)
      EXPECT_EQ(paths.size(), 1u) << paths.front() << " and " << paths.back() << " have one name";
  }
}

// Names that a reader may search for are never pasted together.
TEST(Tree, NoNameOfAnExportIsPastedTogether) {
  for (const fs::path& file : sources({"src", "tests", "bench", "examples", "include"})) {
    std::istringstream lines(tree::code(tree::read(file)));
    for (std::string line; std::getline(lines, line);)
      EXPECT_TRUE(line.find("##") == std::string::npos || line.find("zors") == std::string::npos)
          << fs::relative(file, root).string() << ": " << line;
  }
}

TEST(Tree, CommentsAndTextsAreNoCode) {
  EXPECT_EQ(tree::code("a // zorsB\nc /* zorsD */ e"), "a \nc   e");
  EXPECT_EQ(tree::code("f(\"zorsG \\\" // h\", 'i', '\\'', 1'000); j"), "f(\"\", '', '', 1'000); j");
}

}  // namespace
