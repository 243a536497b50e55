#include "platform/linux/screens/Edid.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace quillary {

namespace {

constexpr std::size_t blockSize = 128;
constexpr std::size_t firstDescriptor = 54;
constexpr std::size_t descriptorSize = 18;
constexpr std::size_t descriptorCount = 4;
constexpr std::size_t descriptorText = 5;
constexpr std::array<std::uint8_t, 8> header = {0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};

using Block = std::span<const std::uint8_t, blockSize>;

std::string makerOf(Block block) {
    const unsigned packed = static_cast<unsigned>(block[8]) << 8U | block[9];
    std::string maker;
    for (const unsigned shift : {10U, 5U, 0U}) {
        const unsigned letter = packed >> shift & 0x1FU;
        if (letter < 1 || letter > 26) {
            return {};
        }
        maker += static_cast<char>('A' + static_cast<char>(letter) - 1);
    }
    return maker;
}

// The standard's text is ASCII that a line feed ends; other bytes are left out, so the result is valid UTF-8.
std::string textOf(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        if (byte == 0x0A || byte == 0x00) {
            break;
        }
        if (byte >= 0x20 && byte < 0x7F) {
            text += static_cast<char>(byte);
        }
    }
    const auto last = text.find_last_not_of(' ');
    text.erase(last == std::string::npos ? 0 : last + 1);
    text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::string descriptorOf(Block block, std::uint8_t tag) {
    for (std::size_t i = 0; i < descriptorCount; ++i) {
        const auto descriptor = block.subspan(firstDescriptor + i * descriptorSize, descriptorSize);
        if (descriptor[0] == 0 && descriptor[1] == 0 && descriptor[2] == 0 && descriptor[3] == tag) {
            return textOf(descriptor.subspan(descriptorText));
        }
    }
    return {};
}

} // namespace

std::optional<Edid> Edid::parse(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < blockSize || !std::ranges::equal(header, bytes.first<header.size()>())) {
        return std::nullopt;
    }
    const Block block = bytes.first<blockSize>();
    if ((std::accumulate(block.begin(), block.end(), 0U) & 0xFFU) != 0) {
        return std::nullopt;
    }
    Edid edid;
    edid.maker = makerOf(block);
    edid.product = static_cast<std::uint16_t>(block[10] | block[11] << 8);
    edid.serial = static_cast<std::uint32_t>(block[12]) | static_cast<std::uint32_t>(block[13]) << 8U |
                  static_cast<std::uint32_t>(block[14]) << 16U | static_cast<std::uint32_t>(block[15]) << 24U;
    edid.serialText = descriptorOf(block, 0xFF);
    edid.monitorName = descriptorOf(block, 0xFC);
    return edid;
}

std::optional<std::string> Edid::identity() const {
    if (maker.empty() || (serial == 0 && serialText.empty())) {
        return std::nullopt;
    }
    return maker + "/" + std::to_string(product) + "/" + std::to_string(serial) + "/" + serialText;
}

} // namespace quillary
