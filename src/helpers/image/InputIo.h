// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <exiv2/exiv2.hpp>
#include <string>

#include "helpers/common/Input.h"

namespace marquell::helpers {

/// An Input as Exiv2 reads files. Cannot be written.
class InputIo : public Exiv2::BasicIo {
public:
    /// `input` must outlive this.
    explicit InputIo(Input& input) : input_(input) {}

    int open() override;
    int close() override;
    long write(const Exiv2::byte* data, long length) override;
    long write(BasicIo& source) override;
    int putb(Exiv2::byte data) override;
    Exiv2::DataBuf read(long length) override;
    long read(Exiv2::byte* buffer, long length) override;
    int getb() override;
    void transfer(BasicIo& source) override;
    int seek(int64_t offset, Position from) override;
    Exiv2::byte* mmap(bool isWriteable) override;
    int munmap() override;
    long tell() const override { return static_cast<long>(offset_); }
    std::size_t size() const override { return static_cast<std::size_t>(input_.size()); }
    bool isopen() const override { return true; }
    int error() const override { return 0; }
    bool eof() const override { return isAtEnd_; }
    std::string path() const override { return {}; }

private:
    Input& input_;
    std::uint64_t offset_ = 0;
    bool isAtEnd_ = false;
    std::size_t singleBytes_ = 0;  ///< read one by one so far
};

}  // namespace marquell::helpers
