// The entry table as it lies in the library that the tests run with.
#include <dlfcn.h>
#include <elf.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "frame/source_text.h"
#include "zors.h"

namespace {

struct Line {
  const char *name, *implementation;
};
#define EXPORT(name) {#name, #name},
#define SHARED(name, as) {#name, #as},
constexpr Line lines[] = {
// of literals alone: strings in their place take the compiler half a minute
#include "frame/exports.def"
};
#undef EXPORT
#undef SHARED
struct Entry {
  std::string name, implementation;
};
const std::vector<Entry> entries = [] {
  std::vector<Entry> all;
  for (const Line& line : lines) all.push_back({line.name, line.implementation});
  return all;
}();

// Every name has a prototype of the type that a function has.
#define EXPORT(name) static_assert(std::is_function_v<decltype(name)>);
#define SHARED(name, as) static_assert(std::is_function_v<decltype(name)>);
#include "frame/exports.def"
#undef EXPORT
#undef SHARED

using tree::read;

void* library() {
  static void* const handle = dlopen("libzorsl9.so.8", RTLD_NOW | RTLD_NOLOAD);
  return handle;
}
const Zor8u* stub(const std::string& name) { return static_cast<const Zor8u*>(dlsym(library(), name.c_str())); }
std::string libraryPath() {
  Dl_info info{};
  EXPECT_NE(dladdr(stub("zorsGetLibVersion"), &info), 0);
  return info.dli_fname;
}

// The dynamic symbols of an ELF file.
struct Symbol {
  std::string name;
  bool defined;
  std::uint64_t size;
};
struct Dynamic {
  std::vector<Symbol> symbols;
  std::vector<std::string> needed;
};
Dynamic dynamicOf(const std::string& path) {
  const std::string file = read(path);
  const auto at = [&]<class T>(T, std::size_t offset) {
    T out;
    std::memcpy(&out, file.data() + offset, sizeof out);
    return out;
  };
  const auto header = at(Elf64_Ehdr{}, 0);
  const auto section = [&](unsigned i) { return at(Elf64_Shdr{}, header.e_shoff + i * sizeof(Elf64_Shdr)); };
  Dynamic out;
  for (unsigned i = 0; i < header.e_shnum; ++i) {
    const auto s = section(i);
    if (s.sh_type != SHT_DYNSYM && s.sh_type != SHT_DYNAMIC) continue;
    const auto names = section(s.sh_link);
    const auto text = [&](std::size_t offset) { return std::string(file.data() + names.sh_offset + offset); };
    for (std::size_t k = 0; k < s.sh_size / s.sh_entsize; ++k) {
      if (s.sh_type == SHT_DYNSYM && k > 0) {
        const auto symbol = at(Elf64_Sym{}, s.sh_offset + k * sizeof(Elf64_Sym));
        out.symbols.push_back({text(symbol.st_name), symbol.st_shndx != SHN_UNDEF, symbol.st_size});
      } else if (s.sh_type == SHT_DYNAMIC) {
        const auto entry = at(Elf64_Dyn{}, s.sh_offset + k * sizeof(Elf64_Dyn));
        if (entry.d_tag == DT_NEEDED) out.needed.push_back(text(entry.d_un.d_val));
      }
    }
  }
  return out;
}

TEST(Exports, StandInAscendingByteOrder) {
  for (std::size_t i = 1; i < entries.size(); ++i) EXPECT_LT(entries[i - 1].name, entries[i].name);
}

TEST(Exports, SharedLinesNameAnImplementation) {
  std::set<std::string> implementations;
  for (const auto& [name, implementation] : entries)
    if (name == implementation) implementations.insert(name);
  for (const auto& [name, implementation] : entries) EXPECT_TRUE(implementations.contains(implementation)) << name;
}

TEST(Exports, TheLibraryExportsTheListAndNothingElse) {
  std::vector<std::string> exported, wanted;
  for (const Symbol& symbol : dynamicOf(libraryPath()).symbols)
    if (symbol.defined) exported.push_back(symbol.name);
  for (const auto& [name, implementation] : entries) wanted.push_back(name);
  std::sort(exported.begin(), exported.end());
  EXPECT_EQ(exported, wanted);
}

TEST(Exports, TheLibraryNeedsTheServiceLibraryAndTheSystemOnly) {
  const std::set<std::string> services = {
      "zorMalloc", "zorFree", "zorAlignPtr", "ownGetFeature", "zorGetEnabledCpuFeatures", "zorGetMaxCacheSizeB"};
  const Dynamic dynamic = dynamicOf(libraryPath());
  for (const Symbol& symbol : dynamic.symbols)
    if (!symbol.defined && (symbol.name.starts_with("zor") || symbol.name.starts_with("own"))) {
      EXPECT_TRUE(services.contains(symbol.name)) << symbol.name;
    }
  for (const std::string& name : dynamic.needed) {
    const auto is = [&](const char* prefix) { return name.starts_with(prefix); };
    EXPECT_TRUE(is("libzorcore-8.2.so") || is("libc.so") || is("libm.so") || is("libstdc++.so") || is("libgcc_s.so") ||
                is("ld-linux") || is("libasan.so") || is("libubsan.so") || is("libtsan.so"))
        << name;
  }
}

TEST(Exports, StubsAreSixteenBytesInTheOrderOfTheirNames) {
  ASSERT_NE(library(), nullptr);
  const Zor8u* const first = stub(entries.front().name);
  ASSERT_EQ(reinterpret_cast<std::uintptr_t>(first) % 16, 0u);
  for (std::size_t i = 0; i < entries.size(); ++i) EXPECT_EQ(stub(entries[i].name), first + 16 * i) << entries[i].name;
  for (const Symbol& symbol : dynamicOf(libraryPath()).symbols)
    if (symbol.defined) {
      EXPECT_EQ(symbol.size, 16u) << symbol.name;
    }
}

// The slot through which a stub jumps.
void* const* slot(const std::string& name) {
  const Zor8u* const code = stub(name);
  EXPECT_EQ(code[0], 0xFF) << name;
  EXPECT_EQ(code[1], 0x25) << name;
  Zor32s distance;
  std::memcpy(&distance, code + 2, 4);
  return reinterpret_cast<void* const*>(code + 6 + distance);
}
// The permissions of the page at an address: "rw-p".
std::string permissions(const void* address) {
  std::ifstream maps("/proc/self/maps");
  const auto wanted = reinterpret_cast<std::uintptr_t>(address);
  for (std::string line; std::getline(maps, line);) {
    std::uintptr_t begin = 0, end = 0;
    char out[5] = {};
    if (std::sscanf(line.c_str(), "%lx-%lx %4s", &begin, &end, out) == 3 && begin <= wanted && wanted < end) return out;
  }
  return "";
}

TEST(Exports, SlotsFormOneWritableTableInTheOrderOfTheirNames) {
  void* const* const first = slot(entries.front().name);
  std::map<std::string, void*> target;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    EXPECT_EQ(slot(entries[i].name), first + i) << entries[i].name;
    target[entries[i].name] = first[i];
    EXPECT_EQ(permissions(first[i]).substr(0, 3), "r-x") << entries[i].name;
  }
  EXPECT_EQ(permissions(first).substr(0, 3), "rw-");
  EXPECT_EQ(permissions(first + entries.size() - 1).substr(0, 3), "rw-");
  for (const auto& [name, implementation] : entries) EXPECT_EQ(target[name], target[implementation]) << name;
}

// Where it is called or its address taken: mentions in comments and in texts do not count.
TEST(Exports, EveryNameIsTested) {
  std::set<std::string> words;
  for (const auto& file : std::filesystem::recursive_directory_iterator(ZORS_SOURCE_DIR "/tests"))
    if (file.is_regular_file())
      for (auto& word : tree::words(tree::code(tree::read(file.path())))) words.insert(word);
  for (const auto& [name, implementation] : entries) EXPECT_TRUE(words.contains(name)) << name << " stands in no test";
}

// Without it a product and a sum would be fused wherever the compiler likes.
TEST(Exports, EveryUnitOfTheLibraryIsCompiledWithoutContraction) {
  std::istringstream commands(read(ZORS_COMPILE_COMMANDS));
  int units = 0;
  for (std::string line; std::getline(commands, line);) {
    if (line.find("\"command\"") == std::string::npos || line.find("/zorsl9.dir/") == std::string::npos ||
        line.find(".cpp") == std::string::npos)
      continue;
    ++units;
    EXPECT_NE(line.find(" -ffp-contract=off "), std::string::npos) << line;
    EXPECT_EQ(line.find("-ffast-math"), std::string::npos) << line;
  }
  EXPECT_GT(units, 0);
}

}  // namespace
