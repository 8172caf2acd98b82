// Source files as text, for the tests of what stands in them.
#pragma once

#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace tree {

inline std::string read(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// The text without comments, and with empty strings and characters. A mark inside a raw string is taken for what it is
// elsewhere; no source here has one.
inline std::string code(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size();) {
    const auto starts = [&](const char* mark) { return text.compare(i, 2, mark) == 0; };
    const auto skipPast = [&](const char* mark, std::size_t from) {
      const auto at = text.find(mark, from);
      i = at == std::string::npos ? text.size() : at + std::string_view(mark).size();
    };
    const bool separator = i > 0 && std::isalnum(static_cast<unsigned char>(text[i - 1])) != 0;  // as in 1'000
    if (starts("//")) {
      skipPast("\n", i);
      out += '\n';
    } else if (starts("/*")) {
      skipPast("*/", i + 2);
      out += ' ';
    } else if (text[i] == '"' || (text[i] == '\'' && !separator)) {
      const char quote = text[i++];
      while (i < text.size() && text[i] != quote) i += text[i] == '\\' ? 2 : 1;
      ++i;
      out += quote;
      out += quote;
    } else {
      out += text[i++];
    }
  }
  return out;
}

inline std::vector<std::string> words(const std::string& text) {
  std::vector<std::string> all;
  std::string word;
  for (char c : text + ' ') {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_')
      word += c;
    else if (!word.empty())
      all.push_back(std::exchange(word, ""));
  }
  return all;
}

}  // namespace tree
