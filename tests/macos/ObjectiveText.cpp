#include "tests/macos/ObjectiveText.h"

#include <cctype>
#include <regex>
#include <vector>

namespace quillary::test::ObjectiveText {

namespace {

bool isWordPart(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

bool isSpace(char character) {
    return std::isspace(static_cast<unsigned char>(character)) != 0;
}

std::size_t skipSpaces(std::string_view text, std::size_t at) {
    while (at < text.size() && isSpace(text[at])) {
        ++at;
    }
    return at;
}

std::string wordAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && isWordPart(text[end])) {
        ++end;
    }
    return std::string(text.substr(at, end - at));
}

/// Behind the bracket that closes the one at `at`.
std::size_t closing(std::string_view text, std::size_t at) {
    int depth = 0;
    for (; at < text.size(); ++at) {
        if (std::string_view("([{").find(text[at]) != std::string_view::npos) {
            ++depth;
        } else if (std::string_view(")]}").find(text[at]) != std::string_view::npos && --depth == 0) {
            return at + 1;
        }
    }
    return text.size();
}

/// The keywords at the top level, each with its colon; a lone word when there is none.
std::string selectorOf(std::string_view parts) {
    std::string selector;
    for (std::size_t at = 0; at < parts.size();) {
        if (std::string_view("([{").find(parts[at]) != std::string_view::npos) {
            at = closing(parts, at);
        } else if (isWordPart(parts[at])) {
            const std::string word = wordAt(parts, at);
            at += word.size();
            const bool isKeyword = parts.substr(at, 1) == ":" && parts.substr(at, 2) != "::";
            if (isKeyword) {
                selector += word + ":";
            }
        } else {
            at += parts.substr(at, 2) == "::" ? 2U : 1U;
        }
    }
    return selector.empty() ? wordAt(parts, skipSpaces(parts, 0)) : selector;
}

/// Whether the bracket at `at` begins a message rather than a subscript, an attribute, a list or a lambda.
bool beginsMessage(std::string_view text, std::size_t at) {
    std::size_t before = at;
    while (before > 0 && isSpace(text[before - 1])) {
        --before;
    }
    const char previous = before > 0 ? text[before - 1] : ';';
    if (previous == '@' || previous == ']') {
        return false;
    }
    if (isWordPart(previous)) {
        std::size_t start = before;
        while (start > 0 && isWordPart(text[start - 1])) {
            --start;
        }
        const auto word = text.substr(start, before - start);
        if (word != "return" && word != "in") {
            return false;
        }
    }
    const std::size_t end = closing(text, at);
    const std::size_t next = skipSpaces(text, end);
    const bool isLambda = next < text.size() && (text[next] == '(' || text[next] == '{');
    const auto inside = text.substr(at + 1, end - at - 2);
    const bool isAttribute = std::regex_match(inside.begin(), inside.end(), std::regex(R"(\[\w+\])")) ||
                             std::regex_match(inside.begin(), inside.end(), std::regex(R"(\w*)"));
    return !isLambda && !isAttribute;
}

/// What follows the receiver of a message.
std::string_view behindReceiver(std::string_view inside) {
    std::size_t at = skipSpaces(inside, 0);
    while (at < inside.size() && !isSpace(inside[at])) {
        at =
            std::string_view("([{").find(inside[at]) != std::string_view::npos ? closing(inside, at) : at + 1;
    }
    return inside.substr(at);
}

std::string capitalised(std::string word) {
    word.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(word.front())));
    return word;
}

std::string withoutAvailability(std::string_view declaration) {
    static const std::regex macro(
        R"(\b(API_AVAILABLE|API_DEPRECATED)\([^()]*(\([^()]*\)[^()]*)*\)|\bNS_[A-Z_]+\b)");
    return std::regex_replace(std::string(declaration), macro, "");
}

void addProperty(const std::string& declaration, std::set<std::string>& selectors) {
    static const std::regex shape(R"(@property\s*(\(([^)]*)\))?[^;]*?\b(\w+)\s*$)");
    static const std::regex getter(R"(getter=(\w+))");
    std::smatch parts;
    if (!std::regex_search(declaration, parts, shape)) {
        return;
    }
    const std::string attributes = parts[2];
    const std::string name = parts[3];
    std::smatch named;
    selectors.insert(std::regex_search(attributes, named, getter) ? named[1].str() : name);
    if (attributes.find("readonly") == std::string::npos) {
        selectors.insert("set" + capitalised(name) + ":");
    }
}

} // namespace

std::string withoutCommentsAndStrings(std::string_view text) {
    std::string kept;
    for (std::size_t at = 0; at < text.size();) {
        if (text.substr(at, 2) == "//") {
            at = std::min(text.find('\n', at), text.size());
        } else if (text.substr(at, 2) == "/*") {
            at = std::min(text.find("*/", at) + 2, text.size());
        } else if (text[at] == '"' || (text[at] == '\'' && (at == 0 || !isWordPart(text[at - 1])))) {
            const char quote = text[at];
            kept += quote;
            for (++at; at < text.size() && text[at] != quote; ++at) {
                at += text[at] == '\\' ? 1U : 0U;
            }
            kept += quote;
            ++at;
        } else {
            kept += text[at++];
        }
    }
    return kept;
}

std::set<std::string> sentSelectors(std::string_view source) {
    const std::string plain = withoutCommentsAndStrings(source);
    const std::string_view text = plain;
    std::set<std::string> selectors;
    for (std::size_t at = text.find('['); at != std::string_view::npos; at = text.find('[', at + 1)) {
        if (beginsMessage(text, at)) {
            selectors.insert(selectorOf(behindReceiver(text.substr(at + 1, closing(text, at) - at - 2))));
        }
    }
    static const std::regex named(R"(@selector\(([\w:]+)\))");
    for (std::sregex_iterator found(plain.begin(), plain.end(), named), end; found != end; ++found) {
        selectors.insert((*found)[1]);
    }
    return selectors;
}

std::set<std::string> declaredSelectors(std::string_view source) {
    const std::string plain = withoutAvailability(withoutCommentsAndStrings(source));
    std::set<std::string> selectors;
    static const std::regex method(R"((^|\n)[-+] ?(\([^;{]*))");
    for (std::sregex_iterator found(plain.begin(), plain.end(), method), end; found != end; ++found) {
        const std::string declaration = (*found)[2];
        selectors.insert(selectorOf(std::string_view(declaration).substr(closing(declaration, 0))));
    }
    static const std::regex property(R"(@property[^;]*)");
    for (std::sregex_iterator found(plain.begin(), plain.end(), property), end; found != end; ++found) {
        addProperty(found->str(), selectors);
    }
    return selectors;
}

std::set<std::string> literals(std::string_view source) {
    const std::string text(source);
    static const std::regex literal(R"re((@|CFSTR\()"([^"]*)")re");
    std::set<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), literal), end; at != end; ++at) {
        found.insert((*at)[2]);
    }
    return found;
}

std::map<std::string, std::string> declaredConstants(std::string_view source) {
    const std::string plain = withoutAvailability(source);
    std::map<std::string, std::string> found;
    static const std::regex enumerator(R"(\n    ([A-Za-z]\w*)\s*(=\s*([^,\n]+))?,(?=\n))");
    for (std::sregex_iterator at(plain.begin(), plain.end(), enumerator), end; at != end; ++at) {
        found.emplace((*at)[1], (*at)[3]);
    }
    static const std::regex constant(R"(\nstatic const \w+ (\w+) = ([^;]+);)");
    for (std::sregex_iterator at(plain.begin(), plain.end(), constant), end; at != end; ++at) {
        found.emplace((*at)[1], (*at)[2]);
    }
    static const std::regex external(R"(\n(?:extern|APPKIT_EXTERN|FOUNDATION_EXPORT)[^;()]*\b(\w+)\s*;)");
    for (std::sregex_iterator at(plain.begin(), plain.end(), external), end; at != end; ++at) {
        found.emplace((*at)[1], "");
    }
    return found;
}

std::set<std::string> words(std::string_view source) {
    const std::string plain = withoutCommentsAndStrings(source);
    static const std::regex word(R"([A-Za-z_]\w*)");
    return {std::sregex_token_iterator(plain.begin(), plain.end(), word), std::sregex_token_iterator()};
}

} // namespace quillary::test::ObjectiveText
