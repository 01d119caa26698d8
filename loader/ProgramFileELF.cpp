#include "ProgramFile.h"

#include <algorithm>
#include <cstring>
#include <elf.h>
#include <filesystem>
#include <fstream>
#include <link.h>
#include <system_error>
#include <vector>

namespace vistrel::loader {

namespace {

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);

template <typename Record> bool read(std::istream& file, Record* records, std::size_t count) {
    const auto size = static_cast<std::streamsize>(sizeof(Record) * count);
    return static_cast<bool>(file.read(reinterpret_cast<char*>(records), size));
}

bool isOfThisKind(const Header& header) {
    return std::memcmp(&header.e_ident[0], ELFMAG, SELFMAG) == 0 &&
           header.e_ident[EI_CLASS] == (sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32) &&
           header.e_phentsize == sizeof(Segment) && header.e_phnum > 0;
}

} // namespace

bool isWholeProgram(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return false;
    const auto size = std::filesystem::file_size(path, error);
    std::ifstream file(path, std::ios::binary);
    Header header{};
    if (error || !read(file, &header, 1) || !isOfThisKind(header))
        return false;
    std::vector<Segment> segments(header.e_phnum);
    file.seekg(static_cast<std::streamoff>(header.e_phoff));
    return read(file, segments.data(), segments.size()) &&
           std::ranges::all_of(segments, [size](const Segment& segment) {
               return segment.p_offset <= size && segment.p_filesz <= size - segment.p_offset;
           });
}

} // namespace vistrel::loader
