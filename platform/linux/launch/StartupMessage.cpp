#include "platform/linux/launch/StartupMessage.h"

#include "core/Utf8.h"

namespace quillary {

namespace {

// The common implementation of receivers gives up on a message at 4096 bytes.
constexpr std::size_t longestMessage = 4000;
constexpr unsigned char firstPrintable = 0x20;
constexpr unsigned char deleteCharacter = 0x7f;

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char letter : text) {
        const auto code = static_cast<unsigned char>(letter);
        if (letter == '"' || letter == '\\') {
            result += '\\';
        }
        result += code < firstPrintable || code == deleteCharacter ? ' ' : letter;
    }
    return result + '"';
}

void append(std::string& message, const char* key, const std::string& value) {
    const auto part = std::string(" ") + key + "=" + quoted(value);
    if (!value.empty() && isValidUtf8(value) && message.size() + part.size() <= longestMessage) {
        message += part;
    }
}

} // namespace

std::string startupBeginning(const StartupSequence& sequence) {
    std::string message = "new:";
    append(message, "ID", sequence.id);
    append(message, "SCREEN", std::to_string(sequence.screen));
    append(message, "TIMESTAMP", std::to_string(sequence.time));
    append(message, "NAME", sequence.name);
    append(message, "WMCLASS", sequence.windowClass);
    append(message, "BIN", sequence.binary);
    append(message, "ICON", sequence.icon);
    append(message, "APPLICATION_ID", sequence.applicationId);
    append(message, "DESCRIPTION", sequence.name);
    return message;
}

std::string startupEnd(const std::string& id) {
    return "remove: ID=" + quoted(id);
}

} // namespace quillary
