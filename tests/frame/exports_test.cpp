// The export table of the shared library, read from its file and from its loaded image: the
// dynamic symbols are exactly the generated export list, every export is the two-instruction
// entry that jumps through its own local slot, and every slot holds its k0_ implementation.
#include <dlfcn.h>
#include <elf.h>
#include <gtest/gtest.h>
#include <link.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "veks.h"

namespace {

const char* const kExports[] = {
#define VEKS_EXPORT(name) #name,
#include "veks_exports.inc"
#undef VEKS_EXPORT
};

std::string library_path() {
  const char* p = std::getenv("VEKS_LIBRARY");
  return p ? p : "";
}

// A read-only view of an ELF64 little-endian file; every read is bounds checked, and a malformed
// file throws.
class ElfFile {
 public:
  explicit ElfFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot open " + path);
    bytes_.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    ehdr = read<Elf64_Ehdr>(0);
    if (std::memcmp(ehdr.e_ident, ELFMAG, SELFMAG) != 0 || ehdr.e_ident[EI_CLASS] != ELFCLASS64 ||
        ehdr.e_ident[EI_DATA] != ELFDATA2LSB || ehdr.e_shentsize != sizeof(Elf64_Shdr))
      throw std::runtime_error("not an ELF64 little-endian file");
    for (unsigned i = 0; i < ehdr.e_shnum; ++i)
      sections_.push_back(read<Elf64_Shdr>(ehdr.e_shoff + uint64_t{i} * sizeof(Elf64_Shdr)));
  }

  Elf64_Ehdr ehdr{};
  const Elf64_Shdr& section(size_t i) const { return sections_.at(i); }

  // The symbols of the first section of the given type (SHT_DYNSYM or SHT_SYMTAB), if any.
  using Symbols = std::vector<std::pair<std::string, Elf64_Sym>>;
  Symbols symbols(uint32_t type) const {
    for (const Elf64_Shdr& sh : sections_) {
      if (sh.sh_type != type) continue;
      Symbols out;
      for (uint64_t off = 0; off + sizeof(Elf64_Sym) <= sh.sh_size; off += sizeof(Elf64_Sym)) {
        const auto sym = read<Elf64_Sym>(sh.sh_offset + off);
        out.emplace_back(string_at(section(sh.sh_link), sym.st_name), sym);
      }
      return out;
    }
    return {};
  }

  std::optional<std::string> soname() const {
    for (const Elf64_Shdr& sh : sections_)
      for (uint64_t off = 0; sh.sh_type == SHT_DYNAMIC && off + sizeof(Elf64_Dyn) <= sh.sh_size;
           off += sizeof(Elf64_Dyn)) {
        const auto d = read<Elf64_Dyn>(sh.sh_offset + off);
        if (d.d_tag == DT_SONAME) return string_at(section(sh.sh_link), d.d_un.d_val);
      }
    return std::nullopt;
  }

 private:
  template <class T>
  T read(uint64_t off) const {
    if (off > bytes_.size() || bytes_.size() - off < sizeof(T))
      throw std::runtime_error("read past the end of the file");
    T v;
    std::memcpy(&v, bytes_.data() + off, sizeof(T));
    return v;
  }
  std::string string_at(const Elf64_Shdr& strtab, uint64_t index) const {
    const uint64_t end = std::min<uint64_t>(strtab.sh_offset + strtab.sh_size, bytes_.size());
    uint64_t i = strtab.sh_offset + index;
    if (strtab.sh_type != SHT_STRTAB || i >= end) throw std::runtime_error("bad string reference");
    const uint64_t begin = i;
    while (i < end && bytes_[i] != 0) ++i;
    if (i == end) throw std::runtime_error("unterminated string");
    return {bytes_.data() + begin, bytes_.data() + i};
  }

  std::vector<char> bytes_;
  std::vector<Elf64_Shdr> sections_;
};

class Exports : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_FALSE(library_path().empty()) << "VEKS_LIBRARY is not set";
    elf_.emplace(library_path());  // throws, and so fails the test, on an unreadable file
  }
  std::optional<ElfFile> elf_;
};

TEST_F(Exports, TheX8664SharedObjectWithItsSonameDefinesExactlyTheExportList) {
  EXPECT_EQ(elf_->ehdr.e_type, ET_DYN);
  EXPECT_EQ(elf_->ehdr.e_machine, EM_X86_64);
  EXPECT_EQ(elf_->soname().value_or("no DT_SONAME"), "libveksk0.so.9.0");

  const std::set<std::string> listed(std::begin(kExports), std::end(kExports));
  EXPECT_EQ(listed.size(), std::size(kExports)) << "the export list names an export twice";
  const auto dynsym = elf_->symbols(SHT_DYNSYM);
  ASSERT_FALSE(dynsym.empty()) << "no dynamic symbol table";
  std::set<std::string> defined;
  for (const auto& [name, sym] : dynsym) {
    const unsigned type = ELF64_ST_TYPE(sym.st_info);
    if (sym.st_shndx == SHN_UNDEF ||
        (type != STT_FUNC && type != STT_OBJECT && type != STT_GNU_IFUNC && type != STT_TLS))
      continue;
    EXPECT_TRUE(defined.insert(name).second) << name << " is defined twice";
    EXPECT_TRUE(listed.count(name)) << "exported but not in the export list: " << name;
  }
  for (const auto& name : listed)
    EXPECT_TRUE(defined.count(name)) << "in the export list but not exported: " << name;
}

// `leaq disp32(%rip), %r11` (REX.W+R, 8D, ModRM mod 00 reg 011 rm 101) followed by
// `jmpq *(%r11)` (REX.B, FF, ModRM mod 00 reg 100 /4 rm 011). Returns the address the lea
// loads, or nothing if the bytes are anything else.
constexpr size_t kEntryBytes = 10;
std::optional<uintptr_t> decode_entry(uintptr_t entry) {
  unsigned char b[kEntryBytes];
  std::memcpy(b, reinterpret_cast<const void*>(entry), sizeof b);
  if (b[0] != 0x4C || b[1] != 0x8D || b[2] != 0x1D || b[7] != 0x41 || b[8] != 0xFF || b[9] != 0x23)
    return std::nullopt;
  int32_t disp;
  std::memcpy(&disp, b + 3, 4);
  return entry + 7 + static_cast<intptr_t>(disp);  // rip-relative: from the end of the lea
}

// In the file and in the image this program loaded: each export is a global function of exactly
// the two instructions, loading its own local 8-byte slot in writable data, which holds the
// address of its k0_ implementation once loaded.
TEST_F(Exports, EveryEntryJumpsThroughItsOwnSlotToItsK0Implementation) {
  const auto dynsym = elf_->symbols(SHT_DYNSYM), symtab = elf_->symbols(SHT_SYMTAB);
  const std::map<std::string, Elf64_Sym> dyn(dynsym.begin(), dynsym.end()),
      all(symtab.begin(), symtab.end());
  ASSERT_FALSE(symtab.empty()) << "no .symtab (stripped?)";
  void* handle = dlopen(library_path().c_str(), RTLD_NOW | RTLD_NOLOAD);
  ASSERT_NE(handle, nullptr) << library_path() << " is not the loaded library: " << dlerror();
  link_map* lm = nullptr;
  ASSERT_EQ(dlinfo(handle, RTLD_DI_LINKMAP, &lm), 0);
  const uintptr_t base = lm->l_addr;

  std::set<uint64_t> slots;
  for (const char* name : kExports) {
    SCOPED_TRACE(name);
    const auto d = dyn.find(name), s = all.find(std::string(name) + "_arraddr"),
               k = all.find(std::string("k0_") + name);
    ASSERT_TRUE(d != dyn.end() && s != all.end() && k != all.end())
        << "no dynamic symbol, slot symbol or k0_ implementation";
    const Elf64_Sym &e = d->second, &slot = s->second, &impl = k->second;
    EXPECT_EQ(ELF64_ST_TYPE(e.st_info), STT_FUNC);
    EXPECT_EQ(ELF64_ST_BIND(e.st_info), STB_GLOBAL);
    EXPECT_EQ(ELF64_ST_VISIBILITY(e.st_other), STV_DEFAULT);
    EXPECT_EQ(e.st_size, kEntryBytes) << "the entry is more than the two instructions";
    EXPECT_TRUE(elf_->section(e.st_shndx).sh_flags & SHF_EXECINSTR);
    EXPECT_EQ(ELF64_ST_TYPE(slot.st_info), STT_OBJECT);
    EXPECT_EQ(ELF64_ST_BIND(slot.st_info), STB_LOCAL);
    EXPECT_EQ(slot.st_size, 8u);
    ASSERT_NE(slot.st_shndx, SHN_UNDEF);
    EXPECT_EQ(elf_->section(slot.st_shndx).sh_flags & (SHF_WRITE | SHF_ALLOC | SHF_EXECINSTR),
              uint64_t{SHF_WRITE | SHF_ALLOC})
        << "the slot is not in writable data";
    EXPECT_TRUE(slots.insert(slot.st_value).second) << "the slot is shared with another export";
    EXPECT_EQ(ELF64_ST_TYPE(impl.st_info), STT_FUNC);
    EXPECT_NE(impl.st_value, e.st_value);

    const uintptr_t entry = base + e.st_value;
    EXPECT_EQ(reinterpret_cast<uintptr_t>(dlsym(handle, name)), entry);
    EXPECT_EQ(decode_entry(entry), std::optional<uintptr_t>(base + slot.st_value))
        << "the entry is not leaq slot(%rip), %r11; jmpq *(%r11) with its own slot";
    uint64_t held;
    std::memcpy(&held, reinterpret_cast<const void*>(base + slot.st_value), sizeof held);
    EXPECT_EQ(held, base + impl.st_value) << "the slot does not hold the k0_ implementation";
  }
  dlclose(handle);
}

}  // namespace
