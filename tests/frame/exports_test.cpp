// The export table of the shared library, read from its file and from its loaded image: the
// dynamic symbols are exactly the generated export list, every export is the two-instruction
// entry that jumps through its own local slot, and every slot holds its k0_ implementation.
#include <dlfcn.h>
#include <elf.h>
#include <gtest/gtest.h>
#include <link.h>
#include <sys/stat.h>

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

// A minimal read-only view of an ELF64 little-endian x86-64 file. Every access is bounds checked
// and copied out with memcpy; a malformed file throws.
class ElfFile {
 public:
  struct Symbol {
    std::string name;
    Elf64_Sym sym;
  };

  explicit ElfFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot open " + path);
    bytes_.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    ehdr_ = read<Elf64_Ehdr>(0);
    if (std::memcmp(ehdr_.e_ident, ELFMAG, SELFMAG) != 0) throw std::runtime_error("not ELF");
    if (ehdr_.e_ident[EI_CLASS] != ELFCLASS64 || ehdr_.e_ident[EI_DATA] != ELFDATA2LSB)
      throw std::runtime_error("not ELF64 little-endian");
    if (ehdr_.e_shentsize != sizeof(Elf64_Shdr)) throw std::runtime_error("bad e_shentsize");
    for (unsigned i = 0; i < ehdr_.e_shnum; ++i)
      sections_.push_back(read<Elf64_Shdr>(ehdr_.e_shoff + uint64_t{i} * sizeof(Elf64_Shdr)));
  }

  const Elf64_Ehdr& header() const { return ehdr_; }
  const Elf64_Shdr& section(size_t i) const {
    if (i >= sections_.size()) throw std::runtime_error("section index out of range");
    return sections_[i];
  }

  // The symbols of the first section of the given type (SHT_DYNSYM or SHT_SYMTAB).
  std::optional<std::vector<Symbol>> symbols(uint32_t type) const {
    for (const Elf64_Shdr& sh : sections_) {
      if (sh.sh_type != type) continue;
      if (sh.sh_entsize != sizeof(Elf64_Sym)) throw std::runtime_error("bad symbol entry size");
      const Elf64_Shdr& strtab = section(sh.sh_link);
      std::vector<Symbol> out;
      for (uint64_t off = 0; off + sizeof(Elf64_Sym) <= sh.sh_size; off += sizeof(Elf64_Sym)) {
        const auto s = read<Elf64_Sym>(sh.sh_offset + off);
        out.push_back({string_at(strtab, s.st_name), s});
      }
      return out;
    }
    return std::nullopt;
  }

  std::optional<std::string> soname() const {
    for (const Elf64_Shdr& sh : sections_) {
      if (sh.sh_type != SHT_DYNAMIC) continue;
      for (uint64_t off = 0; off + sizeof(Elf64_Dyn) <= sh.sh_size; off += sizeof(Elf64_Dyn)) {
        const auto d = read<Elf64_Dyn>(sh.sh_offset + off);
        if (d.d_tag == DT_NULL) break;
        if (d.d_tag == DT_SONAME) return string_at(section(sh.sh_link), d.d_un.d_val);
      }
    }
    return std::nullopt;
  }

  // A relocation the loader applies: where, which kind, and the value it adds to the base.
  struct Reloc {
    uint64_t where;
    uint32_t type;
    uint64_t addend;
  };

  // Every relocation of the allocated relocation sections, explicit (SHT_RELA) or packed
  // relative ones (SHT_RELR, whose addend is the word stored at the address).
  std::vector<Reloc> load_time_relocations() const {
    std::vector<Reloc> out;
    for (const Elf64_Shdr& sh : sections_) {
      if (!(sh.sh_flags & SHF_ALLOC)) continue;
      if (sh.sh_type == SHT_RELA) {
        for (uint64_t off = 0; off + sizeof(Elf64_Rela) <= sh.sh_size; off += sizeof(Elf64_Rela)) {
          const auto r = read<Elf64_Rela>(sh.sh_offset + off);
          out.push_back({r.r_offset, static_cast<uint32_t>(ELF64_R_TYPE(r.r_info)),
                         static_cast<uint64_t>(r.r_addend)});
        }
      } else if (sh.sh_type == SHT_RELR) {
        uint64_t next = 0;
        for (uint64_t off = 0; off + 8 <= sh.sh_size; off += 8) {
          const auto w = read<uint64_t>(sh.sh_offset + off);
          if ((w & 1) == 0) {
            out.push_back({w, R_X86_64_RELATIVE, word_at(w)});
            next = w + 8;
          } else {
            for (unsigned bit = 1; bit < 64; ++bit)
              if ((w >> bit) & 1) {
                const uint64_t a = next + (bit - 1) * 8;
                out.push_back({a, R_X86_64_RELATIVE, word_at(a)});
              }
            next += 63 * 8;
          }
        }
      }
    }
    return out;
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

  // The 64-bit word the file holds for virtual address `addr`.
  uint64_t word_at(uint64_t addr) const {
    for (const Elf64_Shdr& sh : sections_)
      if ((sh.sh_flags & SHF_ALLOC) && sh.sh_type != SHT_NOBITS && addr >= sh.sh_addr &&
          addr - sh.sh_addr + 8 <= sh.sh_size)
        return read<uint64_t>(sh.sh_offset + (addr - sh.sh_addr));
    throw std::runtime_error("relocated address outside the file's sections");
  }

  std::string string_at(const Elf64_Shdr& strtab, uint64_t index) const {
    if (strtab.sh_type != SHT_STRTAB || index >= strtab.sh_size)
      throw std::runtime_error("bad string table reference");
    const uint64_t begin = strtab.sh_offset + index, end = strtab.sh_offset + strtab.sh_size;
    if (end > bytes_.size()) throw std::runtime_error("string table past the end of the file");
    uint64_t i = begin;
    while (i < end && bytes_[i] != 0) ++i;
    if (i == end) throw std::runtime_error("unterminated string");
    return {bytes_.data() + begin, bytes_.data() + i};
  }

  std::vector<char> bytes_;
  Elf64_Ehdr ehdr_{};
  std::vector<Elf64_Shdr> sections_;
};

bool defined_code_or_data(const Elf64_Sym& s) {
  const unsigned type = ELF64_ST_TYPE(s.st_info);
  return s.st_shndx != SHN_UNDEF &&
         (type == STT_FUNC || type == STT_OBJECT || type == STT_GNU_IFUNC || type == STT_TLS ||
          type == STT_COMMON);
}

std::map<std::string, Elf64_Sym> by_name(const std::vector<ElfFile::Symbol>& syms) {
  std::map<std::string, Elf64_Sym> out;
  for (const auto& s : syms)
    if (!s.name.empty()) out.emplace(s.name, s.sym);
  return out;
}

class Exports : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_FALSE(library_path().empty()) << "VEKS_LIBRARY is not set";
    elf_.emplace(library_path());  // throws, and so fails the test, on an unreadable file
  }
  std::optional<ElfFile> elf_;
};

TEST_F(Exports, TheFileIsTheX8664SharedObjectWithItsSoname) {
  EXPECT_EQ(elf_->header().e_type, ET_DYN);
  EXPECT_EQ(elf_->header().e_machine, EM_X86_64);
  const auto soname = elf_->soname();
  ASSERT_TRUE(soname.has_value()) << "no DT_SONAME";
  EXPECT_EQ(*soname, "libveksk0.so.9.0");
}

TEST_F(Exports, DynamicSymbolsAreExactlyTheExportList) {
  const std::set<std::string> listed(std::begin(kExports), std::end(kExports));
  EXPECT_EQ(listed.size(), std::size(kExports)) << "the export list names an export twice";

  const auto dynsym = elf_->symbols(SHT_DYNSYM);
  ASSERT_TRUE(dynsym.has_value()) << "no dynamic symbol table";
  std::set<std::string> defined;
  for (const auto& s : *dynsym) {
    if (!defined_code_or_data(s.sym)) continue;
    EXPECT_TRUE(defined.insert(s.name).second) << s.name << " is defined twice";
    EXPECT_TRUE(listed.count(s.name)) << "exported but not in the export list: " << s.name;
  }
  for (const auto& name : listed)
    EXPECT_TRUE(defined.count(name)) << "in the export list but not exported: " << name;
}

// The loaded image of the file named by VEKS_LIBRARY, which this program links.
struct Image {
  void* handle = nullptr;
  uintptr_t base = 0;
};

Image loaded_image(const std::string& path) {
  Image img;
  img.handle = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
  if (!img.handle) return img;
  link_map* lm = nullptr;
  if (dlinfo(img.handle, RTLD_DI_LINKMAP, &lm) != 0 || !lm) {
    dlclose(img.handle);
    img.handle = nullptr;
    return img;
  }
  img.base = static_cast<uintptr_t>(lm->l_addr);
  return img;
}

bool same_file(const std::string& a, const std::string& b) {
  struct stat sa {
  }, sb{};
  return stat(a.c_str(), &sa) == 0 && stat(b.c_str(), &sb) == 0 && sa.st_dev == sb.st_dev &&
         sa.st_ino == sb.st_ino;
}

// `leaq disp32(%rip), %r11` (REX.W+R, 8D, ModRM mod 00 reg 011 rm 101) followed by
// `jmpq *(%r11)` (REX.B, FF, ModRM mod 00 reg 100 /4 rm 011). Returns the address the lea
// loads, or nothing if the bytes are anything else.
constexpr size_t kEntryBytes = 10;

std::optional<uintptr_t> decode_entry(uintptr_t entry, const unsigned char (&b)[kEntryBytes]) {
  const bool lea_r11_rip = b[0] == 0x4C && b[1] == 0x8D && b[2] == 0x1D;
  const bool jmp_mem_r11 = b[7] == 0x41 && b[8] == 0xFF && b[9] == 0x23;
  if (!lea_r11_rip || !jmp_mem_r11) return std::nullopt;
  int32_t disp;
  std::memcpy(&disp, b + 3, 4);
  return entry + 7 + static_cast<intptr_t>(disp);  // rip-relative: from the end of the lea
}

TEST_F(Exports, EveryEntryJumpsThroughItsOwnSlotToItsK0Implementation) {
  const std::string path = library_path();
  const auto dynsym = elf_->symbols(SHT_DYNSYM);
  const auto symtab = elf_->symbols(SHT_SYMTAB);
  ASSERT_TRUE(dynsym.has_value());
  ASSERT_TRUE(symtab.has_value()) << "the library has no .symtab (stripped?)";
  const auto dyn = by_name(*dynsym);
  const auto all = by_name(*symtab);

  // Load-time relocations by the address they patch.
  std::multimap<uint64_t, ElfFile::Reloc> relocs;
  for (const auto& r : elf_->load_time_relocations()) relocs.emplace(r.where, r);

  const Image img = loaded_image(path);
  ASSERT_NE(img.handle, nullptr) << path << " is not the loaded library: " << dlerror();
  {
    link_map* lm = nullptr;
    ASSERT_EQ(dlinfo(img.handle, RTLD_DI_LINKMAP, &lm), 0);
    EXPECT_TRUE(same_file(lm->l_name, path)) << lm->l_name << " vs " << path;
  }

  std::set<uint64_t> slots;
  for (const char* name : kExports) {
    SCOPED_TRACE(name);
    const auto d = dyn.find(name);
    ASSERT_TRUE(d != dyn.end()) << "not a dynamic symbol";
    const Elf64_Sym& e = d->second;
    EXPECT_EQ(ELF64_ST_TYPE(e.st_info), STT_FUNC);
    EXPECT_EQ(ELF64_ST_BIND(e.st_info), STB_GLOBAL);
    EXPECT_EQ(ELF64_ST_VISIBILITY(e.st_other), STV_DEFAULT);
    EXPECT_EQ(e.st_size, kEntryBytes) << "the entry is more than the two instructions";
    EXPECT_TRUE(elf_->section(e.st_shndx).sh_flags & SHF_EXECINSTR);

    const auto slot_sym = all.find(std::string(name) + "_arraddr");
    const auto impl_sym = all.find(std::string("k0_") + name);
    ASSERT_TRUE(slot_sym != all.end()) << "no slot symbol";
    ASSERT_TRUE(impl_sym != all.end()) << "no k0_ implementation symbol";
    const Elf64_Sym& slot = slot_sym->second;
    const Elf64_Sym& impl = impl_sym->second;
    EXPECT_EQ(ELF64_ST_TYPE(slot.st_info), STT_OBJECT);
    EXPECT_EQ(ELF64_ST_BIND(slot.st_info), STB_LOCAL);
    EXPECT_EQ(slot.st_size, 8u);
    ASSERT_NE(slot.st_shndx, SHN_UNDEF);
    const uint64_t slot_flags = elf_->section(slot.st_shndx).sh_flags;
    EXPECT_TRUE((slot_flags & SHF_WRITE) && (slot_flags & SHF_ALLOC) &&
                !(slot_flags & SHF_EXECINSTR))
        << "the slot is not in writable data";
    EXPECT_TRUE(slots.insert(slot.st_value).second) << "the slot is shared with another export";
    EXPECT_EQ(ELF64_ST_TYPE(impl.st_info), STT_FUNC);
    ASSERT_NE(impl.st_shndx, SHN_UNDEF);
    EXPECT_NE(impl.st_value, e.st_value);

    // The slot is filled by exactly one relocation, to the implementation's address.
    const auto [rb, re] = relocs.equal_range(slot.st_value);
    ASSERT_EQ(std::distance(rb, re), 1) << "the slot is not filled by exactly one relocation";
    EXPECT_EQ(rb->second.type, static_cast<uint32_t>(R_X86_64_RELATIVE));
    EXPECT_EQ(rb->second.addend, impl.st_value);

    // The loaded image.
    const uintptr_t entry = img.base + e.st_value;
    EXPECT_EQ(reinterpret_cast<uintptr_t>(dlsym(img.handle, name)), entry);
    unsigned char code[kEntryBytes];
    std::memcpy(code, reinterpret_cast<const void*>(entry), sizeof code);
    const auto target = decode_entry(entry, code);
    ASSERT_TRUE(target.has_value()) << "the entry is not leaq slot(%rip), %r11; jmpq *(%r11)";
    EXPECT_EQ(*target, img.base + slot.st_value) << "the entry loads another slot";
    uint64_t held;
    std::memcpy(&held, reinterpret_cast<const void*>(img.base + slot.st_value), sizeof held);
    EXPECT_EQ(held, img.base + impl.st_value) << "the slot does not hold the k0_ implementation";
  }
  dlclose(img.handle);
}

}  // namespace
