// SPDX-License-Identifier: GPL-3.0-or-later
// Reads image files one after the other without a process of their own, and prints how long one
// takes:
//     marquell_read_in_process FILE...
// Only for files that are trusted.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>

#include "helpers/common/Input.h"
#include "helpers/image/ImageReader.h"

int main(int count, char** arguments) {
    using namespace marquell::helpers;
    prepareImageReader();
    std::size_t values = 0;
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 1; i < count; ++i) {
        const std::string path = arguments[i];
        const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        struct ::stat status {};
        if (file < 0 || ::fstat(file, &status) != 0) {
            std::perror(path.c_str());
            return 1;
        }
        FileInput input(file, static_cast<std::uint64_t>(status.st_size));
        const auto properties = readImage(input, path.substr(path.rfind('.') + 1));
        values += properties ? properties->size() : 0;
        ::close(file);
    }
    const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - begin;
    std::printf("%.1f us a file, %zu values in all\n", time.count() / (count > 1 ? count - 1 : 1),
                values);
}
