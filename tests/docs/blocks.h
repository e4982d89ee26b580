// SPDX-License-Identifier: BSD-3-Clause
// What every code block of our documents may use without saying so.
#ifndef OVL_TESTS_DOCS_BLOCKS_H
#define OVL_TESTS_DOCS_BLOCKS_H

#include <hosting/viewwidget.h>
#include <visualization/coordinatessender.h>
#include <visualization/imageview.h>
#include <visualization/line.h>
#include <visualization/point.h>
#include <visualization/pointcloudview.h>
#include <visualization/profileview.h>
#include <visualization/range.h>
#include <visualization/shape.h>
#include <visualization/surfaceview.h>

#include <QApplication>
#include <QColor>
#include <QHBoxLayout>
#include <QLabel>
#include <QObject>
#include <QOpenGLWidget>
#include <QPushButton>
#include <QString>
#include <QTimer>

#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

#endif
