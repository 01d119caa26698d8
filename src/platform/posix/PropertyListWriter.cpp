#include "platform/posix/Base64.h"
#include "platform/posix/DateText.h"
#include "platform/posix/PropertyListXML.h"
#include "platform/posix/UTF8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <libxml/xmlwriter.h>
#include <memory>

namespace vistrel::posix {

namespace {

const xmlChar* xml(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

/// XML has no way to write the other control characters, nor the two numbers of the basic plane
/// that are no characters. A file with one of them, or with bytes that are no UTF-8, could not be
/// read again.
bool isWritable(std::string_view text) {
    return std::ranges::none_of(
               text,
               [](unsigned char c) { return c < 0x20 && c != '\t' && c != '\n' && c != '\r'; }) &&
           isUTF8(text) && text.find("\xEF\xBF\xBE") == std::string_view::npos &&
           text.find("\xEF\xBF\xBF") == std::string_view::npos;
}

std::string realText(double value) {
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value > 0 ? "+infinity" : "-infinity";
    std::array<char, 32> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), end};
}

/// Writes one value; false as soon as anything cannot be written.
class Writer {
  public:
    explicit Writer(xmlTextWriter* writer) : writer_(writer) {}

    bool write(const PropertyList& value) { return std::visit(*this, value); }

    bool operator()(bool value) { return empty(value ? "true" : "false"); }

    bool operator()(std::int64_t value) { return leaf("integer", std::to_string(value)); }

    bool operator()(std::uint64_t value) { return leaf("integer", std::to_string(value)); }

    bool operator()(double value) { return leaf("real", realText(value)); }

    bool operator()(const std::string& value) { return leaf("string", value); }

    bool operator()(const Date& value) { return leaf("date", textFromDate(value)); }

    bool operator()(const Data& value) { return leaf("data", base64FromData(value)); }

    bool operator()(const Array& values) {
        return start("array") &&
               std::ranges::all_of(values, [this](const auto& value) { return write(value); }) &&
               end();
    }

    bool operator()(const Dictionary& values) {
        return start("dict") &&
               std::ranges::all_of(values.entries(),
                                   [this](const auto& entry) {
                                       return leaf("key", entry.first) && write(entry.second);
                                   }) &&
               end();
    }

  private:
    bool start(const char* name) { return xmlTextWriterStartElement(writer_, xml(name)) >= 0; }

    bool end() { return xmlTextWriterEndElement(writer_) >= 0; }

    bool empty(const char* name) { return start(name) && end(); }

    bool leaf(const char* name, const std::string& text) {
        return isWritable(text) &&
               xmlTextWriterWriteElement(writer_, xml(name), xml(text.c_str())) >= 0;
    }

    xmlTextWriter* writer_;
};

bool writeHead(xmlTextWriter* writer) {
    return xmlTextWriterStartDocument(writer, nullptr, "UTF-8", nullptr) >= 0 &&
           xmlTextWriterWriteDTD(writer, xml("plist"), xml("-//Apple//DTD PLIST 1.0//EN"),
                                 xml("http://www.apple.com/DTDs/PropertyList-1.0.dtd"),
                                 nullptr) >= 0 &&
           xmlTextWriterWriteRaw(writer, xml("\n")) >= 0;
}

bool writeDocument(xmlTextWriter* writer, const PropertyList& value) {
    // Indented from here on: the head would be broken into lines otherwise.
    return writeHead(writer) && xmlTextWriterSetIndent(writer, 1) >= 0 &&
           xmlTextWriterSetIndentString(writer, xml("\t")) >= 0 &&
           xmlTextWriterStartElement(writer, xml("plist")) >= 0 &&
           xmlTextWriterWriteAttribute(writer, xml("version"), xml("1.0")) >= 0 &&
           Writer(writer).write(value) && xmlTextWriterEndDocument(writer) >= 0;
}

} // namespace

std::optional<std::string> xmlFromPropertyList(const PropertyList& value) {
    const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(xmlBufferCreate(),
                                                                      &xmlBufferFree);
    std::unique_ptr<xmlTextWriter, decltype(&xmlFreeTextWriter)> writer(
        xmlNewTextWriterMemory(buffer.get(), 0), &xmlFreeTextWriter);
    if (!writer || !writeDocument(writer.get(), value))
        return std::nullopt;
    writer.reset(); // which completes the buffer
    return std::string(reinterpret_cast<const char*>(xmlBufferContent(buffer.get())),
                       static_cast<std::size_t>(xmlBufferLength(buffer.get())));
}

} // namespace vistrel::posix
