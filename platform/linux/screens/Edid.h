#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace quillary {

/// The identity of a display by the base block of its EDID (VESA E-EDID Standard, release A).
struct Edid {
    /// Three letters of the maker's PNP id; empty when the field is damaged.
    std::string maker;
    std::uint16_t product = 0;
    /// The serial number field; 0 when the maker left it out.
    std::uint32_t serial = 0;
    /// The serial number descriptor (0xFF); empty when there is none. Valid UTF-8.
    std::string serialText;
    /// The monitor name descriptor (0xFC); empty when there is none. Valid UTF-8.
    std::string monitorName;

    /// Reads a block; absent when the bytes are shorter than 128, lack the header or fail the checksum.
    [[nodiscard]] static std::optional<Edid> parse(std::span<const std::uint8_t> bytes);

    /// Maker, product and serial as one text; absent when maker or serial is missing, since the rest
    /// identifies only the model.
    [[nodiscard]] std::optional<std::string> identity() const;

    bool operator==(const Edid&) const = default;
};

} // namespace quillary
