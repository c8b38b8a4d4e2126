// SPDX-License-Identifier: GPL-3.0-or-later
#include "ManyNodes.h"

#include <algorithm>
#include <random>
#include <string>

namespace marquell::bench {

std::shared_ptr<pipeline::FlatFileList> manyNodes(std::size_t count) {
    auto list = std::make_shared<pipeline::FlatFileList>();
    pipeline::NodeArena arena;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string folder = "Folder " + std::to_string(i / 1000);
        const std::string name =
            "IMG_" + std::to_string(i * 7919 % 10000) + "-" + std::to_string(i) + ".jpg";
        const std::string path = "/home/user/Pictures/" + folder + "/" + name;
        list->files.push_back(arena.make<pipeline::FileNode>(name, path, folder));
    }
    std::shuffle(list->files.begin(), list->files.end(), std::mt19937(1));
    return list;
}

}  // namespace marquell::bench
