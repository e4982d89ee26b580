// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SCANNERBAR_H
#define OVL_GALLERY_SCANNERBAR_H

#include <QWidget>

namespace ovl::gallery {

class Scanner;

/** Start and pause, restart and speed of the scanner. */
class ScannerBar : public QWidget {
    Q_OBJECT

public:
    explicit ScannerBar(Scanner& scanner, QWidget* parent = nullptr);
};

} // namespace ovl::gallery

#endif
