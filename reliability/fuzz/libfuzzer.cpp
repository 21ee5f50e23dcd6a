// The entry that libFuzzer calls. Which target is read is chosen by MARROWCUT_FUZZ_TARGET.

#include "targets.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace
{

const marrowcut::fuzz::Target &chosenTarget()
{
    const char *name = std::getenv("MARROWCUT_FUZZ_TARGET");
    for (const auto &target : marrowcut::fuzz::targets) {
        if (name && std::strcmp(target.name, name) == 0)
            return target;
    }
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const marrowcut::fuzz::Target &target = chosenTarget();
    target.read(QByteArrayView(data, qsizetype(size)));
    return 0;
}
