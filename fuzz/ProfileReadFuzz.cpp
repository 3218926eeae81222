// Any bytes as a profile file: no crash, and the sections and keys the lists
// name can be read, at most 255 characters of a value.
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "ProfileFile.h"
#include "ProfileFuzz.h"

using namespace sidekin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString path =
        profileWith(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    int checked = 0;
    for (const QString& section : profileSections(path)) {
        for (const QString& key : profileKeys(section, path)) {
            if (++checked > kKeysChecked) return 0;
            if (!readValue(section, key, path, 256)) std::abort();
            GetPrivateProfileIntA(section, key, 7, path);
        }
    }
    return 0;
}
