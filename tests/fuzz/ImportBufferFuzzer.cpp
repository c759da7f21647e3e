// Any byte sequence given to ImportBuffer must end in a buffer or in a FileError: never in a
// crash, a leak, another exception or a sanitizer report.

#include "basis/Exception.h"
#include "framestore/Buffer.h"
#include "framestore/BufferFile.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <typeinfo>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    static std::string const path = "/tmp/import-buffer-fuzz-" + std::to_string(getpid()) + ".h5";
    FILE * file = std::fopen(path.c_str(), "wb");
    if (!file)
        std::abort();
    std::fwrite(data, 1, size, file);
    std::fclose(file);
    try {
        std::unique_ptr<FrameStore::I_Buffer> buffer(FrameStore::ImportBuffer(QString::fromStdString(path), nullptr));
    } catch (Basis::FileError const &) {
    } catch (std::exception const & e) {
        std::fprintf(stderr, "ImportBuffer let through %s: %s\n", typeid(e).name(), e.what());
        std::abort();
    }
    return 0;
}
