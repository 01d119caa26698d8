#include "platform/posix/Base64.h"
#include "platform/posix/DateText.h"
#include "platform/posix/PropertyListXML.h"

#include <charconv>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <memory>
#include <system_error>
#include <utility>

namespace vistrel::posix {

namespace {

constexpr int deepest = 200;

std::string_view nameOf(const xmlNode& node) {
    return reinterpret_cast<const char*>(node.name);
}

/// The first element from `node` on. Everything else between elements is layout.
const xmlNode* element(const xmlNode* node) {
    while (node != nullptr && node->type != XML_ELEMENT_NODE)
        node = node->next;
    return node;
}

bool isLayout(const xmlNode& node) {
    return node.type == XML_COMMENT_NODE || node.type == XML_PI_NODE;
}

/// nullopt when there is anything else in `node` than text, such as an entity that only a file
/// elsewhere could declare: it would be missing from what is written back.
std::optional<std::string> textOf(const xmlNode& node) {
    for (const auto* child = node.children; child != nullptr; child = child->next)
        if (xmlNodeIsText(child) == 0 && child->type != XML_CDATA_SECTION_NODE && !isLayout(*child))
            return std::nullopt;
    const std::unique_ptr<xmlChar, decltype(xmlFree)> content(xmlNodeGetContent(&node), xmlFree);
    return content ? reinterpret_cast<const char*>(content.get()) : "";
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The number that is all of `text` but blanks around it and a plus sign.
template <typename Number> std::optional<PropertyList> number(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    Number value{};
    const auto* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value);
    if (text.empty() || error != std::errc{} || end != last)
        return std::nullopt;
    return value;
}

/// The positive number in hexadecimal digits that `text` is behind "0x".
std::optional<PropertyList> hexadecimal(std::string_view text) {
    std::uint64_t value = 0;
    const auto* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value, 16);
    if (error != std::errc{} || end != last)
        return std::nullopt;
    if (std::in_range<std::int64_t>(value))
        return static_cast<std::int64_t>(value);
    return value;
}

std::optional<PropertyList> integer(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with("0x") || text.starts_with("0X"))
        return hexadecimal(text.substr(2));
    if (auto value = number<std::int64_t>(text))
        return value;
    return number<std::uint64_t>(text);
}

/// The value that an element of this name holds as a text.
std::optional<PropertyList> leaf(std::string_view name, const std::string& text) {
    if (name == "string")
        return text;
    if (name == "integer")
        return integer(text);
    if (name == "real")
        return number<double>(text);
    if (name == "date")
        return dateFromText(trimmed(text));
    if (name == "data")
        return dataFromBase64(text);
    return std::nullopt;
}

std::optional<PropertyList> valueOf(const xmlNode* node, int depth);

std::optional<PropertyList> array(const xmlNode* child, int depth) {
    Array values;
    for (child = element(child); child != nullptr; child = element(child->next)) {
        auto value = valueOf(child, depth);
        if (!value)
            return std::nullopt;
        values.push_back(std::move(*value));
    }
    return values;
}

std::optional<PropertyList> dictionary(const xmlNode* child, int depth) {
    Dictionary values;
    for (child = element(child); child != nullptr; child = element(child->next)) {
        if (nameOf(*child) != "key")
            return std::nullopt;
        const auto key = textOf(*child);
        child = element(child->next);
        auto value = valueOf(child, depth);
        if (!key || !value)
            return std::nullopt;
        values.set(*key, std::move(*value));
    }
    return values;
}

std::optional<PropertyList> valueOf(const xmlNode* node, int depth) {
    if (node == nullptr || depth == 0)
        return std::nullopt;
    const auto name = nameOf(*node);
    if (name == "dict")
        return dictionary(node->children, depth - 1);
    if (name == "array")
        return array(node->children, depth - 1);
    if (name == "true" || name == "false")
        return name == "true";
    const auto text = textOf(*node);
    return text ? leaf(name, *text) : std::nullopt;
}

void sayNothing(void*, const char*, ...) {} // NOLINT(cert-dcl50-cpp): libxml2's type

/// While it lives, nothing that is wrong with a file is printed by the library: some of that comes
/// in spite of the options below, and it would be the host that prints it.
class Silence {
  public:
    Silence() { xmlSetGenericErrorFunc(nullptr, sayNothing); }

    ~Silence() { xmlSetGenericErrorFunc(context_, function_); }

    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
    Silence(Silence&&) = delete;
    Silence& operator=(Silence&&) = delete;

  private:
    xmlGenericErrorFunc function_ = xmlGenericError;
    void* context_ = xmlGenericErrorContext;
};

} // namespace

std::optional<PropertyList> propertyListFromXML(std::string_view text) {
    const Silence silence;
    constexpr int silentAndOffline = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                      silentAndOffline),
        &xmlFreeDoc);
    if (!document || (document->intSubset != nullptr && document->intSubset->entities != nullptr))
        return std::nullopt;
    const auto* root = xmlDocGetRootElement(document.get());
    if (root == nullptr || nameOf(*root) != "plist")
        return std::nullopt;
    return valueOf(element(root->children), deepest);
}

} // namespace vistrel::posix
