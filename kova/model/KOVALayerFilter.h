#pragma once

#include <cstdint>
#include <memory>

#include <kova/containers/KOVADynamicArray.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/text/KOVAString.h>

/// A named selection of drawing layers. Operations that can fail say when; the others always succeed.
class KOVA_API KOVALayerFilter {
public:
    /// Other values are passed through.
    enum eLayerFilterType : std::int32_t { AllLayers = 0, DefaultType = 2 };

    /// Unnamed, not current, without layers, and of the default type.
    KOVALayerFilter();
    /// The same where Set refuses the arguments.
    KOVALayerFilter(int count, int* layers, KOVAString const& name, bool current, eLayerFilterType type);
    /// Both filters hold one array of layers; Set gives a filter an array of its own again.
    KOVALayerFilter(KOVALayerFilter const& other);
    KOVALayerFilter& operator=(KOVALayerFilter const& other);
    ~KOVALayerFilter();

    /// Failure, and nothing changes, unless there are layers and a count above 0, or neither. An empty name
    /// leaves the filter unnamed.
    KOVIResult Set(int count, int* layers, KOVAString const& name, bool current, eLayerFilterType type);

    /// The same for a type as a number.
    KOVIResult Set(int count, int* layers, KOVAString const& name, bool current, int type) {
        return Set(count, layers, name, current, static_cast<eLayerFilterType>(type));
    }

    /// Failure when unnamed; the output is left alone then.
    KOVIResult GetName(KOVAString& name) const;
    /// Failure for an empty name, and the old one stays.
    KOVIResult SetName(KOVAString const& name);

    KOVIResult IsCurrent(bool& current) const;
    KOVIResult SetCurrent(bool current);

    KOVIResult IsALLLayerFilter(bool& all) const;
    KOVIResult GetLayerFilterType(eLayerFilterType& type) const;
    KOVIResult SetLayerFilterType(eLayerFilterType type);
    KOVIResult SetLayerFilterType(int type) { return SetLayerFilterType(static_cast<eLayerFilterType>(type)); }

    KOVIResult GetNumLayers(int& count) const;
    /// Failure, and -1 for the layer, when there is no such position.
    KOVIResult GetLayerAt(int i, int& layer) const;

private:
    void keepName(KOVAString const* name);

    std::unique_ptr<KOVAString> name_;
    bool current_ = false;
    eLayerFilterType type_ = DefaultType;
    KOVADynamicArray<std::int32_t> layers_;
};
