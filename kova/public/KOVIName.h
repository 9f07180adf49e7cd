#pragma once

#include <kova/core/export.h>
#include <kova/public/KOVIObject.h>

namespace kova::detail {
struct ConstantNames;
}

/// What the handles of names have in common: their bodies are KOVINameImpl.
///
///     options.Add(KOVIOptionName::SewTolerance, 0.01);
///     puts(KOVIComponentName::STL.GetText());
///
/// The constants live as long as the process, and so do their bodies, whatever is done with copies of them.
/// (They are references, lest each of them be registered for its destruction when the library is loaded.)
class KOVA_API KOVINameHandle : public KOVIObject {
public:
    /// The name, null for a handle that is not valid; it lives as long as the body.
    char const* GetText() const;

protected:
    explicit KOVINameHandle(char const* const tag) noexcept : KOVIObject(tag) {}
    /// Not valid for a null text.
    KOVINameHandle(char const* const tag, char const* text);
    constexpr KOVINameHandle(char const* const tag, void* body) noexcept : KOVIObject(tag, body) {}
};

/// Any name.
class KOVA_API KOVIName : public KOVINameHandle {
public:
    /// Not valid until another one is assigned.
    KOVIName() : KOVINameHandle("KOVIName") {}
    KOVIName(char const* text) : KOVINameHandle("KOVIName", text) {}
    KOVIName(KOVIName const&) = default;
    KOVIName& operator=(KOVIName const&) = default;
    ~KOVIName() override;
};

/// A format, or another part of the toolkit.
class KOVA_API KOVIComponentName : public KOVINameHandle {
public:
    KOVIComponentName() : KOVINameHandle("KOVIComponentName") {}
    KOVIComponentName(char const* text) : KOVINameHandle("KOVIComponentName", text) {}
    KOVIComponentName(KOVIComponentName const&) = default;
    KOVIComponentName& operator=(KOVIComponentName const&) = default;
    ~KOVIComponentName() override;

#define KOVI_COMPONENT_NAME(identifier, text) static KOVIComponentName const& identifier;
#include <kova/public/names.def>

private:
    friend struct kova::detail::ConstantNames;
    constexpr KOVIComponentName(char const* const tag, void* body) noexcept : KOVINameHandle(tag, body) {}
};

/// A direction of translation.
class KOVA_API KOVIReaderWriterName : public KOVINameHandle {
public:
    KOVIReaderWriterName() : KOVINameHandle("KOVIReaderWriterName") {}
    KOVIReaderWriterName(char const* text) : KOVINameHandle("KOVIReaderWriterName", text) {}
    KOVIReaderWriterName(KOVIReaderWriterName const&) = default;
    KOVIReaderWriterName& operator=(KOVIReaderWriterName const&) = default;
    ~KOVIReaderWriterName() override;

#define KOVI_READER_WRITER_NAME(identifier, text) static KOVIReaderWriterName const& identifier;
#include <kova/public/names.def>

private:
    friend struct kova::detail::ConstantNames;
    constexpr KOVIReaderWriterName(char const* const tag, void* body) noexcept : KOVINameHandle(tag, body) {}
};

/// What a model is made of.
class KOVA_API KOVIRepresentationName : public KOVINameHandle {
public:
    KOVIRepresentationName() : KOVINameHandle("KOVIRepresentationName") {}
    KOVIRepresentationName(char const* text) : KOVINameHandle("KOVIRepresentationName", text) {}
    KOVIRepresentationName(KOVIRepresentationName const&) = default;
    KOVIRepresentationName& operator=(KOVIRepresentationName const&) = default;
    ~KOVIRepresentationName() override;

#define KOVI_REPRESENTATION_NAME(identifier, text) static KOVIRepresentationName const& identifier;
#include <kova/public/names.def>

private:
    friend struct kova::detail::ConstantNames;
    constexpr KOVIRepresentationName(char const* const tag, void* body) noexcept : KOVINameHandle(tag, body) {}
};

/// An option of KOVIOptions.
class KOVA_API KOVIOptionName : public KOVINameHandle {
public:
    KOVIOptionName() : KOVINameHandle("KOVIOptionName") {}
    KOVIOptionName(char const* text) : KOVINameHandle("KOVIOptionName", text) {}
    KOVIOptionName(KOVIOptionName const&) = default;
    KOVIOptionName& operator=(KOVIOptionName const&) = default;
    ~KOVIOptionName() override;

#define KOVI_OPTION_NAME(identifier) static KOVIOptionName const& identifier;
#include <kova/public/names.def>

private:
    friend struct kova::detail::ConstantNames;
    constexpr KOVIOptionName(char const* const tag, void* body) noexcept : KOVINameHandle(tag, body) {}
};
