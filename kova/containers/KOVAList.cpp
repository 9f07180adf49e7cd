#include <kova/containers/KOVAList.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAList) == 16);

KOVAList::~KOVAList() = default;

void KOVAList::PushBack(void* v) {
    append(new KOVAListNode(v));
}

void KOVAList::PushFront(void* v) {
    prepend(new KOVAListNode(v));
}
