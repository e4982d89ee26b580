// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_CURVELIST_H
#define OVL_GALLERY_CURVELIST_H

#include <QColor>
#include <QWidget>

#include <vector>

class QGridLayout;

namespace ovl::gallery {

/** How a curve is shown. */
struct CurveLook {
    QString title;
    QColor colour;
    int corner = 0; // as the profile view counts them
    bool visible = true;
};

/** A row of settings for each curve. Columns are counted as the view does: the first curve is 1. */
class CurveList : public QWidget {
    Q_OBJECT

public:
    explicit CurveList(QWidget* parent = nullptr);

    /** Makes the rows anew. */
    void setCurves(const std::vector<CurveLook>& curves);

Q_SIGNALS:
    void visibilityChanged(int column, bool visible);
    void titleChanged(int column, const QString& title);
    void colourChanged(int column, const QColor& colour);
    void cornerChanged(int column, int corner);

private:
    void addRow(QGridLayout* grid, int column, const CurveLook& look);

    QWidget* rows = nullptr;
};

} // namespace ovl::gallery

#endif
