// Tokens of any text: peeking changes nothing, nothing is lost, and conversions stay within the token.

#include "fuzz.h"

namespace {

void scan(KOVAInputStream& stream, bool stringMode) {
    Gk_Source source(&stream, stringMode);
    source.setWhiteSpace(Gk_Source::WhiteSpace(" \t\n,"));
    for (;;) {
        Gk_String const peeked = source.peek();
        Gk_String const token = source.next();
        require(peeked == token && peeked.len() == token.len());
        if (token.len() == 0) break;
        Gk_StringParser parser(token);
        if (parser.isInteger(0)) require(parser.isReal(0) || token.dataLen() > 1);
        parser.intValue();
        parser.uIntValue();
        parser.realValue();
        require(parser.end() >= &token[0] && parser.end() <= &token[0] + token.len());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::string const text(reinterpret_cast<char const*>(data), size);
    Gk_String terminated(text.c_str(), static_cast<int>(text.size()) + 1);
    KOVAStringInputStream memory(terminated);
    scan(memory, false);
    KOVAStringInputStream again(terminated);
    Gk_PacketInputStream packets(&again, 3);
    scan(packets, true);
    KOVAStringTokenizer const tokens(KOVAString(text.c_str()), ',');
    KOVAString joined, token;
    for (int i = 0; tokens.GetToken(i, token).IsSuccess(); ++i) joined = i == 0 ? token : joined + "," + token;
    require(joined.equals(KOVAString(text.c_str())) || joined.length() == 0);
    return 0;
}
