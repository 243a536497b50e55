#pragma once

#include <cstdint>
#include <string>

namespace quillary::test {

/// The bytes of a _XSETTINGS_SETTINGS property, made setting by setting.
class XsettingsBytes {
public:
    enum class Order { leastFirst, mostFirst };

    explicit XsettingsBytes(Order order = Order::leastFirst) : m_order(order) {}

    XsettingsBytes& text(const std::string& name, const std::string& value) {
        return start(1, name).number(value.size(), 4).padded(value);
    }
    XsettingsBytes& integer(const std::string& name, std::uint32_t value) {
        return start(0, name).number(value, 4);
    }
    XsettingsBytes& colour(const std::string& name) { return start(2, name).number(0, 4).number(0, 4); }
    /// The beginning of a setting, without its value.
    XsettingsBytes& start(char kind, const std::string& name) {
        ++m_count;
        m_settings += kind;
        m_settings += '\0';
        return number(name.size(), 2).padded(name).number(7, 4);
    }
    XsettingsBytes& number(std::uint64_t value, unsigned size) {
        m_settings += bytesOf(value, size);
        return *this;
    }
    XsettingsBytes& padded(const std::string& value) {
        m_settings += value + std::string((4 - value.size() % 4) % 4, '\0');
        return *this;
    }

    [[nodiscard]] std::string bytes() const { return bytes(m_count); }
    /// As if it announced that many settings.
    [[nodiscard]] std::string bytes(std::uint32_t announced) const {
        return std::string(1, m_order == Order::mostFirst ? '\1' : '\0') + std::string(3, '\0') +
               bytesOf(42, 4) + bytesOf(announced, 4) + m_settings;
    }

private:
    [[nodiscard]] std::string bytesOf(std::uint64_t value, unsigned size) const {
        std::string result;
        for (unsigned at = 0; at < size; ++at) {
            const auto shift = 8 * (m_order == Order::mostFirst ? size - 1 - at : at);
            result += static_cast<char>(value >> shift & 0xFFU);
        }
        return result;
    }

    Order m_order;
    std::string m_settings;
    std::uint32_t m_count = 0;
};

} // namespace quillary::test
