#include "core/PropertyListGuard.h"

#include <cstdint>
#include <optional>

namespace quillary::PropertyListGuard {

namespace {

// Each container costs libplist one stack frame when they are all nested, and each entity one move of the
// text's rest.
constexpr std::size_t mostXmlContainers = 10'000;
constexpr std::size_t mostXmlEntities = 4096;
constexpr std::size_t mostXmlKeys = 8192;

constexpr int deepestBinaryNesting = 64;
constexpr std::size_t mostBinaryNodes = 200'000;
constexpr std::size_t mostBinaryPayload = 16 * sizeLimit;

constexpr std::string_view binaryMagic = "bplist";
constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;

std::size_t occurrences(std::string_view text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

bool isHarmlessXml(std::string_view text) {
    return occurrences(text, "<dict") + occurrences(text, "<array") <= mostXmlContainers &&
           occurrences(text, "&") <= mostXmlEntities && occurrences(text, "<key") <= mostXmlKeys;
}

/// Unfolds a binary property list as its parser does, but only counts.
class BinaryWalk {
public:
    explicit BinaryWalk(std::string_view bytes) : m_bytes(bytes) {}

    [[nodiscard]] bool isHarmless() {
        if (m_bytes.size() < headerSize + trailerSize) {
            return false;
        }
        const std::size_t trailer = m_bytes.size() - trailerSize;
        m_offsetSize = static_cast<std::uint8_t>(m_bytes[trailer + 6]);
        m_referenceSize = static_cast<std::uint8_t>(m_bytes[trailer + 7]);
        m_objectCount = integer(trailer + 8, 8);
        const std::uint64_t root = integer(trailer + 16, 8);
        m_tableStart = integer(trailer + 24, 8);
        const bool hasSizes =
            m_offsetSize >= 1 && m_offsetSize <= 8 && m_referenceSize >= 1 && m_referenceSize <= 8;
        return hasSizes && m_tableStart >= headerSize && m_tableStart <= trailer &&
               m_objectCount <= (trailer - m_tableStart) / m_offsetSize && visit(root, 0);
    }

private:
    enum Kind : std::uint8_t {
        number = 0x1,
        real = 0x2,
        date = 0x3,
        data = 0x4,
        ascii = 0x5,
        utf16 = 0x6,
        uid = 0x8,
        array = 0xA,
        set = 0xC,
        dictionary = 0xD
    };

    /// The big-endian integer of `size` bytes (at most 8) at `at`, both inside the file.
    [[nodiscard]] std::uint64_t integer(std::size_t at, std::size_t size) const {
        std::uint64_t value = 0;
        for (const char byte : m_bytes.substr(at, size)) {
            value = value << 8U | static_cast<std::uint8_t>(byte);
        }
        return value;
    }

    /// The number of bytes from `at` to the end of the objects.
    [[nodiscard]] std::size_t room(std::size_t at) const { return at < m_tableStart ? m_tableStart - at : 0; }

    /// The length of a string, data or container whose marker is at `at`; moves `at` past marker and length.
    [[nodiscard]] std::optional<std::uint64_t> takeLength(std::size_t& at) const {
        const auto low = static_cast<std::uint8_t>(m_bytes[at++]) & 0x0FU;
        if (low != 0x0F) {
            return low;
        }
        if (room(at) < 1 || static_cast<std::uint8_t>(m_bytes[at]) >> 4U != number) {
            return std::nullopt;
        }
        const std::size_t size = std::size_t{1} << (static_cast<std::uint8_t>(m_bytes[at++]) & 0x0FU);
        if (size > 8 || room(at) < size) {
            return std::nullopt;
        }
        const std::uint64_t length = integer(at, size);
        at += size;
        return length;
    }

    [[nodiscard]] bool visit(std::uint64_t index, int depth) {
        if (index >= m_objectCount || depth > deepestBinaryNesting || ++m_nodes > mostBinaryNodes) {
            return false;
        }
        const std::uint64_t offset = integer(m_tableStart + index * m_offsetSize, m_offsetSize);
        if (offset < headerSize || offset >= m_tableStart) {
            return false;
        }
        std::size_t at = offset;
        switch (static_cast<std::uint8_t>(m_bytes[at]) >> 4U) {
        case number:
        case real:
        case date:
            return room(at + 1) >= std::size_t{1} << (static_cast<std::uint8_t>(m_bytes[at]) & 0x0FU);
        case uid:
            return room(at + 1) > (static_cast<std::uint8_t>(m_bytes[at]) & 0x0FU);
        case data:
        case ascii:
            return visitPayload(at, 1);
        case utf16:
            return visitPayload(at, 2);
        case array:
        case set:
            return visitMembers(at, 1, depth);
        case dictionary:
            return visitMembers(at, 2, depth);
        default:
            return true;
        }
    }

    [[nodiscard]] bool visitPayload(std::size_t at, std::size_t unit) {
        const std::optional<std::uint64_t> length = takeLength(at);
        if (!length || *length > room(at) / unit) {
            return false;
        }
        m_payload += *length * unit;
        return m_payload <= mostBinaryPayload;
    }

    [[nodiscard]] bool visitMembers(std::size_t at, std::size_t references, int depth) {
        const std::optional<std::uint64_t> length = takeLength(at);
        if (!length || *length > room(at) / (references * m_referenceSize)) {
            return false;
        }
        for (std::uint64_t member = 0; member < *length * references; ++member) {
            if (!visit(integer(at + member * m_referenceSize, m_referenceSize), depth + 1)) {
                return false;
            }
        }
        return true;
    }

    std::string_view m_bytes;
    std::size_t m_offsetSize = 0;
    std::size_t m_referenceSize = 0;
    std::uint64_t m_objectCount = 0;
    std::size_t m_tableStart = 0;
    std::size_t m_nodes = 0;
    std::size_t m_payload = 0;
};

} // namespace

bool isHarmless(std::string_view bytes) {
    if (bytes.size() > sizeLimit) {
        return false;
    }
    return bytes.starts_with(binaryMagic) ? BinaryWalk(bytes).isHarmless() : isHarmlessXml(bytes);
}

} // namespace quillary::PropertyListGuard
