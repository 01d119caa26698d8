#include "platform/posix/UTF8.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <iconv.h>

namespace vistrel::posix {

namespace {

class Converter {
  public:
    /// To UTF-32 and not to UTF-8: converting UTF-8 to itself lets numbers beyond U+10FFFF pass.
    Converter() : converter_(::iconv_open("UTF-32LE", "UTF-8")) {}

    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    Converter(Converter&&) = delete;
    Converter& operator=(Converter&&) = delete;

    ~Converter() {
        if (exists())
            ::iconv_close(converter_);
    }

    [[nodiscard]] bool exists() const { return reinterpret_cast<std::intptr_t>(converter_) != -1; }

    /// Whether all of `text` can be converted. What it is converted to is thrown away.
    bool accepts(std::string_view text) {
        auto* in = const_cast<char*>(text.data());
        auto left = text.size();
        while (left > 0) {
            std::array<char, 4096> space{};
            auto* out = space.data();
            auto room = space.size();
            if (::iconv(converter_, &in, &left, &out, &room) == failure && errno != E2BIG)
                return false;
        }
        return true;
    }

  private:
    static constexpr auto failure = static_cast<std::size_t>(-1);
    iconv_t converter_;
};

} // namespace

bool isUTF8(std::string_view text) {
    Converter converter;
    return converter.exists() && converter.accepts(text);
}

} // namespace vistrel::posix
