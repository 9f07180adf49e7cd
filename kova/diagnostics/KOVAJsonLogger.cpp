#include <kova/diagnostics/KOVAJsonLogger.h>

#include <chrono>
#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>

#include <kova/diagnostics/KOVAEvent.h>
#include <kova/diagnostics/log_stream.h>
#include <kova/platform/clock.h>
#include <kova/text/numbers.h>

namespace {

/// The length of the UTF-8 character that the text begins with (RFC 3629); 0 when it begins with none.
std::size_t utf8Length(std::string_view text) {
    auto const byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    unsigned char const first = byte(0);
    if (first < 0x80)
        return 1;
    std::size_t const length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length)
        return 0;
    // Neither longer than need be, nor half of a pair, nor beyond the last character.
    unsigned char const least = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    unsigned char const most = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    if (byte(1) < least || byte(1) > most)
        return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if (byte(i) < 0x80 || byte(i) > 0xBF)
            return 0;
    }
    return length;
}

void appendEscaped(std::string& line, unsigned char byte) {
    char escape[8];
    switch (byte) {
    case '"': line += "\\\""; break;
    case '\\': line += "\\\\"; break;
    case '\n': line += "\\n"; break;
    case '\t': line += "\\t"; break;
    default:
        std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned int>(byte));
        line += escape;
        break;
    }
}

void appendText(std::string& line, std::string_view text) {
    line += '"';
    while (!text.empty()) {
        unsigned char const first = static_cast<unsigned char>(text.front());
        std::size_t const length = utf8Length(text);
        bool const plain = length > 0 && first >= 0x20 && first != '"' && first != '\\';
        if (plain)
            line += text.substr(0, length);
        else
            appendEscaped(line, first);
        text.remove_prefix(plain ? length : 1);
    }
    line += '"';
}

void appendTextOrNull(std::string& line, char const* text) {
    if (text)
        appendText(line, text);
    else
        line += "null";
}

/// Now, as ISO 8601 has it.
void appendTime(std::string& line) {
    using std::chrono::milliseconds;
    auto const now = std::chrono::duration_cast<milliseconds>(std::chrono::system_clock::now().time_since_epoch());
    std::tm const date = kova::detail::universalTime(static_cast<std::time_t>(now.count() / 1000));
    char text[32];
    std::size_t const length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &date);
    line.append(text, length);
    std::snprintf(text, sizeof text, ".%03dZ", static_cast<int>(now.count() % 1000));
    line += text;
}

} // namespace

KOVAJsonLogger::~KOVAJsonLogger() = default;

void KOVAJsonLogger::HandleEvent(KOVAEvent& event) {
    // Tasks are paired whatever their level, so that every duration that is written is right.
    kova::detail::TaskStep const step = tasks_.take(event);
    if (!GetOutputStream() || !takes(event.GetLevel()))
        return;
    kova::detail::Description const description(event);
    std::string_view text = description.text();
    if (!text.empty() && text.back() == '\n')
        text.remove_suffix(1);
    std::string line = "{\"time\":\"";
    appendTime(line);
    line.append("\",\"level\":").append(std::to_string(static_cast<int>(event.GetLevel())));
    line += ",\"event\":";
    appendTextOrNull(line, event.GetEventName());
    line += ",\"text\":";
    appendText(line, text);
    line += ",\"task\":";
    appendTextOrNull(line, step.task);
    line.append(",\"duration\":").append(step.completed ? kova::detail::fixedText(step.seconds, 3) : "null");
    line += "}\n";
    kova::detail::writeWhole(*GetOutputStream(), line);
}
