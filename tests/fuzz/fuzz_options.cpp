// Any bytes are an option file or are refused; what was added is found and counted.

#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    MemoryFile const file(data, size);
    KOVAOptions options;
    KOVIResult const result = options.ReadFromFile(file.get());
    require(result.IsSuccess() || options.Size() == 0);
    KOVAOptions copy(options);
    int count = 0;
    for (KOVAOption* option = nullptr; options.GetNext(option).IsSuccess(); ++count) {
        KOVAString name;
        require(option->GetName(name).IsSuccess());
        KOVAOption* found = nullptr;
        require(options.GetOption(name, found).IsSuccess() && found == option);
        require(copy.GetOption(name, found).IsSuccess() && found != option);
        KOVAOptionName::IsValid(name);
        KOVAString text;
        option->GetValue(text);
    }
    require(count == options.Size() && copy.Size() == count);
    return 0;
}
