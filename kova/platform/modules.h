#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// Modules that are loaded while the program runs.
namespace kova::detail {

/// What a module's file name ends with, point included.
char const* moduleExtension() noexcept;

/// The folders of the running program and of this library, in this order; each once, without those that the
/// system does not tell.
std::vector<std::filesystem::path> moduleFolders();

/// Loads the file of an absolute path. A name without a folder is looked for by the loader's own rules, but
/// never in the current folder. Null, and the loader's reason, when it does not load.
void* openModule(std::filesystem::path const& file, std::string& reason);
void closeModule(void* module) noexcept;

/// The address of what the module itself exports under the name, a function or data; null when there is none.
void* findSymbol(void* module, char const* name) noexcept;

} // namespace kova::detail
