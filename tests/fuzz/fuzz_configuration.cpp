// Any bytes load as a configuration file, and every key that loads can be asked for.

#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    MemoryFile const file(data, size);
    KOVACfgFile configuration;
    KOVIResult const result = configuration.Load(file.get());
    require(result.IsSuccess() == (configuration.GetErrorCount() == 0));
    for (int s = 0; s < configuration.GetSectionCount(); ++s) {
        KOVACfgFileSection const* const section = configuration.GetSection(s);
        for (int k = 0; k < section->GetNumKeys(); ++k) {
            KOVACfgFileKey const* const key = section->GetKey(k);
            char const* const name = key->GetName();
            char const* const sectionName = section->GetSectionName();
            require(configuration.ExistKey(name, sectionName) && key->GetNumValues() > 0);
            require(key->GetAllValues().len() > 0);
            bool flag = false;
            int number = 0;
            double real = 0;
            configuration.GetBool(name, flag, 0, sectionName);
            configuration.GetLogical(name, number, 0, sectionName);
            configuration.GetInt(name, number, 0, sectionName);
            configuration.GetDouble(name, real, 0, sectionName);
        }
    }
    KOVACfgFile copy;
    copy = configuration;
    require(copy.GetErrorCount() == configuration.GetErrorCount());
    return 0;
}
