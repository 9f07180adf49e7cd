#pragma once

#include <kova/core/export.h>
#include <kova/public/KOVIObject.h>

/// What the handles of names have in common: their bodies are KOVINameImpl.
///
///     options.Add(KOVIOptionName::SewTolerance, 0.01);
///     puts(KOVIComponentName::STL.GetText());
///
/// The constants live as long as the process. Loading them costs next to nothing: they are references to handles
/// that are made when the library is compiled and never destroyed. The body of each is made when it is first asked
/// for, takes its serial number then, and is never deleted, whatever is done with copies. Hazard: the whole process
/// shares the constants, so that using one, even reading or copying it, is for one thread at a time.
class KOVA_API KOVINameHandle : public KOVIObject {
public:
    /// The name, null for a handle that is not valid; it lives as long as the body.
    char const* GetText() const;

protected:
    constexpr explicit KOVINameHandle(char const* const tag) noexcept : KOVIObject(tag) {}
    /// Not valid for a null text.
    KOVINameHandle(char const* const tag, char const* text);
};

/// Any name.
class KOVA_API KOVIName : public KOVINameHandle {
public:
    /// Not valid until another one is assigned.
    constexpr KOVIName() noexcept : KOVINameHandle("KOVIName") {}
    KOVIName(char const* text) : KOVINameHandle("KOVIName", text) {}
    KOVIName(KOVIName const&) = default;
    KOVIName& operator=(KOVIName const&) = default;
    ~KOVIName() override;
};

/// A format, or another part of the toolkit.
class KOVA_API KOVIComponentName : public KOVINameHandle {
public:
    constexpr KOVIComponentName() noexcept : KOVINameHandle("KOVIComponentName") {}
    KOVIComponentName(char const* text) : KOVINameHandle("KOVIComponentName", text) {}
    KOVIComponentName(KOVIComponentName const&) = default;
    KOVIComponentName& operator=(KOVIComponentName const&) = default;
    ~KOVIComponentName() override;

#define KOVI_COMPONENT_NAME(identifier, text) static KOVIComponentName const& identifier;
#include <kova/public/names.def>
};

/// A direction of translation.
class KOVA_API KOVIReaderWriterName : public KOVINameHandle {
public:
    constexpr KOVIReaderWriterName() noexcept : KOVINameHandle("KOVIReaderWriterName") {}
    KOVIReaderWriterName(char const* text) : KOVINameHandle("KOVIReaderWriterName", text) {}
    KOVIReaderWriterName(KOVIReaderWriterName const&) = default;
    KOVIReaderWriterName& operator=(KOVIReaderWriterName const&) = default;
    ~KOVIReaderWriterName() override;

#define KOVI_READER_WRITER_NAME(identifier, text) static KOVIReaderWriterName const& identifier;
#include <kova/public/names.def>
};

/// What a model is made of.
class KOVA_API KOVIRepresentationName : public KOVINameHandle {
public:
    constexpr KOVIRepresentationName() noexcept : KOVINameHandle("KOVIRepresentationName") {}
    KOVIRepresentationName(char const* text) : KOVINameHandle("KOVIRepresentationName", text) {}
    KOVIRepresentationName(KOVIRepresentationName const&) = default;
    KOVIRepresentationName& operator=(KOVIRepresentationName const&) = default;
    ~KOVIRepresentationName() override;

#define KOVI_REPRESENTATION_NAME(identifier, text) static KOVIRepresentationName const& identifier;
#include <kova/public/names.def>
};

/// An option of KOVIOptions.
class KOVA_API KOVIOptionName : public KOVINameHandle {
public:
    constexpr KOVIOptionName() noexcept : KOVINameHandle("KOVIOptionName") {}
    KOVIOptionName(char const* text) : KOVINameHandle("KOVIOptionName", text) {}
    KOVIOptionName(KOVIOptionName const&) = default;
    KOVIOptionName& operator=(KOVIOptionName const&) = default;
    ~KOVIOptionName() override;

#define KOVI_OPTION_NAME(identifier) static KOVIOptionName const& identifier;
#include <kova/public/names.def>
};
