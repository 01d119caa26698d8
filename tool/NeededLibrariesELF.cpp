#include "tool/NeededLibraries.h"

#include <algorithm>
#include <cstring>
#include <elf.h>
#include <filesystem>
#include <fstream>
#include <link.h>
#include <optional>
#include <system_error>

namespace vistrel::tool {

namespace {

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);
using Entry = ElfW(Dyn);

/// No dynamic section and no segment table comes near this.
constexpr std::size_t mostRecords = 1U << 16U;

class Program {
  public:
    explicit Program(const std::string& path) : file_(path, std::ios::binary) {}

    std::vector<std::string> needed() {
        if (!readSegments())
            return {};
        const auto dynamic = std::ranges::find(segments_, PT_DYNAMIC, &Segment::p_type);
        if (dynamic == segments_.end())
            return {};
        const auto entries = read<Entry>(dynamic->p_offset, dynamic->p_filesz / sizeof(Entry));
        const auto names = std::ranges::find(entries, DT_STRTAB, &Entry::d_tag);
        const auto table = names == entries.end() ? std::nullopt : offsetOf(names->d_un.d_ptr);
        std::vector<std::string> libraries;
        for (const auto& entry : entries)
            if (entry.d_tag == DT_NEEDED && table)
                libraries.push_back(textAt(*table + entry.d_un.d_val));
        return libraries;
    }

  private:
    template <typename Record> std::vector<Record> read(std::size_t offset, std::size_t count) {
        if (count > mostRecords)
            return {};
        std::vector<Record> records(count);
        file_.clear();
        file_.seekg(static_cast<std::streamoff>(offset));
        const auto size = static_cast<std::streamsize>(count * sizeof(Record));
        if (!file_.read(reinterpret_cast<char*>(records.data()), size))
            return {};
        return records;
    }

    bool readSegments() {
        const auto header = read<Header>(0, 1);
        if (header.empty() || std::memcmp(&header[0].e_ident[0], ELFMAG, SELFMAG) != 0 ||
            header[0].e_ident[EI_CLASS] != (sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32) ||
            header[0].e_phentsize != sizeof(Segment))
            return false;
        segments_ = read<Segment>(header[0].e_phoff, header[0].e_phnum);
        return !segments_.empty();
    }

    [[nodiscard]] std::optional<std::size_t> offsetOf(std::size_t address) const {
        for (const auto& segment : segments_) {
            if (segment.p_type == PT_LOAD && address >= segment.p_vaddr &&
                address - segment.p_vaddr < segment.p_filesz)
                return address - segment.p_vaddr + segment.p_offset;
        }
        return std::nullopt;
    }

    std::string textAt(std::size_t offset) {
        std::string text;
        file_.clear();
        file_.seekg(static_cast<std::streamoff>(offset));
        std::getline(file_, text, '\0');
        return text;
    }

    std::ifstream file_;
    std::vector<Segment> segments_;
};

} // namespace

std::vector<std::string> neededLibraries(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return {};
    return Program(path).needed();
}

} // namespace vistrel::tool
