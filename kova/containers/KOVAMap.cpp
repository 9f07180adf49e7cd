#include <kova/containers/KOVAMap.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAMap) == 16);

KOVAMap::~KOVAMap() = default;

void KOVAMap::PushBack(long key, void* value) {
    append(new KOVAMapNode(static_cast<std::int32_t>(key), value));
}

void KOVAMap::PushFront(long key, void* value) {
    prepend(new KOVAMapNode(static_cast<std::int32_t>(key), value));
}

KOVAMapNode::KOVAMapIterator KOVAMap::FindByKey(long key) noexcept {
    return first([key](KOVAMapNode const& node) { return node.key_ == static_cast<std::int32_t>(key); });
}

void* KOVAMap::GetValueByKey(long key) const noexcept {
    KOVAMapNode const* node = tail_;
    while (node && node->key_ != static_cast<std::int32_t>(key))
        node = node->prev_;
    return node ? node->value_ : nullptr;
}
