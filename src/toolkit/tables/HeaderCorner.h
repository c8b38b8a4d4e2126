// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHeaderView>

namespace marquell::toolkit {

/// Carries a table's header on over its vertical scroll bar, which so begins under the header.
class HeaderCorner : public QWidget {
public:
    HeaderCorner(const QHeaderView& header, QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QHeaderView& header_;
};

}  // namespace marquell::toolkit
