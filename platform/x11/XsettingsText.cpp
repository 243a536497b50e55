#include "platform/x11/XsettingsText.h"

#include "core/Utf8.h"

#include <cstddef>
#include <cstdint>

namespace quillary {

namespace {

enum class ByteOrder : unsigned char { leastFirst = 0, mostFirst = 1 };

enum class Kind : unsigned char { integer = 0, text = 1, colour = 2 };

constexpr std::size_t integerSize = 4;
constexpr std::size_t colourSize = 8;

// Takes fields off the front of the bytes. Once one is missing, all that follow are, too.
class Fields {
public:
    explicit Fields(std::string_view bytes) : m_rest(bytes) {}

    void setOrder(ByteOrder order) { m_order = order; }

    [[nodiscard]] std::string_view take(std::size_t size) {
        if (size > m_rest.size()) {
            m_rest = {};
            m_isWhole = false;
            return {};
        }
        const auto field = m_rest.substr(0, size);
        m_rest.remove_prefix(size);
        return field;
    }
    // A text and the unused bytes that make its length a multiple of four.
    [[nodiscard]] std::string_view takePadded(std::size_t size) {
        const auto text = take(size);
        const auto padding = (4 - size % 4) % 4;
        return take(padding).size() == padding ? text : std::string_view();
    }
    [[nodiscard]] std::uint32_t number(std::size_t size) {
        std::uint32_t value = 0;
        const auto field = take(size);
        for (std::size_t at = 0; at < field.size(); ++at) {
            const auto place = m_order == ByteOrder::mostFirst ? at : field.size() - 1 - at;
            value = value << 8U | static_cast<unsigned char>(field[place]);
        }
        return value;
    }
    [[nodiscard]] bool isWhole() const { return m_isWhole; }

private:
    std::string_view m_rest;
    ByteOrder m_order = ByteOrder::leastFirst;
    bool m_isWhole = true;
};

} // namespace

std::optional<std::string> xsettingsText(std::string_view bytes, std::string_view name) {
    Fields fields(bytes);
    const auto order = fields.number(1);
    if (order > static_cast<std::uint32_t>(ByteOrder::mostFirst)) {
        return std::nullopt;
    }
    fields.setOrder(static_cast<ByteOrder>(order));
    static_cast<void>(fields.take(3 + 4)); // unused, serial
    const auto count = fields.number(4);
    // However many settings are announced, the loop ends with the bytes.
    for (std::uint32_t setting = 0; setting < count && fields.isWhole(); ++setting) {
        const auto kind = fields.number(1);
        static_cast<void>(fields.take(1));
        const auto found = fields.takePadded(fields.number(2));
        static_cast<void>(fields.take(4)); // serial of the last change
        std::string_view text;
        if (kind == static_cast<std::uint32_t>(Kind::text)) {
            text = fields.takePadded(fields.number(4));
        } else if (kind == static_cast<std::uint32_t>(Kind::integer)) {
            static_cast<void>(fields.take(integerSize));
        } else if (kind == static_cast<std::uint32_t>(Kind::colour)) {
            static_cast<void>(fields.take(colourSize));
        } else {
            return std::nullopt;
        }
        if (fields.isWhole() && found == name) {
            const bool isText = kind == static_cast<std::uint32_t>(Kind::text) && isValidUtf8(text);
            return isText ? std::optional(std::string(text)) : std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace quillary
