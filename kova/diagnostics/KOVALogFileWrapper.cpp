#include <kova/diagnostics/KOVALogFileWrapper.h>

#include <kova/system/KOVAFilePath.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVALogFileWrapper) == 20);

namespace {

constexpr unsigned short kWriteMode[] = {'w', 0};

} // namespace

KOVALogFileWrapper::KOVALogFileWrapper(bool reading)
    : KOVALogFileWrapper(reading ? "plintex_read.log" : "plintex_write.log") {}

KOVALogFileWrapper::KOVALogFileWrapper(char const* fileName)
    : file_(fileName && *fileName ? KOVAFilePath(fileName).OpenFile(kWriteMode) : nullptr), borrowed_(false) {
    logger_.Initialize(file_, KOVA_LEVEL_UNSET);
}

KOVALogFileWrapper::KOVALogFileWrapper(std::FILE* file) : file_(file), borrowed_(true) {
    logger_.Initialize(file_, KOVA_LEVEL_UNSET);
}

KOVALogFileWrapper::~KOVALogFileWrapper() {
    if (file_ && !borrowed_)
        std::fclose(file_);
}
