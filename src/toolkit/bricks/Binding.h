// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marquell::toolkit {

/// Something that can be taken back.
class Unbindable {
public:
    virtual ~Unbindable() = default;
    virtual void unbind() = 0;
};

/// Ties a control to a variable. It has to live as long as the control is to be tied.
class Binding : public Unbindable {
public:
    /// Shows the variable's value, now and at each change.
    virtual void activate() = 0;
};

}  // namespace marquell::toolkit
