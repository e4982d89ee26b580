// SPDX-License-Identifier: BSD-3-Clause
// A host with a VTK widget of its own, which renders it as it likes.
#include <visualization/profileview.h>

#include <QVTKOpenGLNativeWidget.h>
#include <vtkRenderWindow.h>

#include <QApplication>
#include <QSurfaceFormat>
#include <QTimer>

int main(int argc, char** argv)
{
    QSurfaceFormat::setDefaultFormat(QVTKOpenGLNativeWidget::defaultFormat());
    QApplication application(argc, argv);
    QVTKOpenGLNativeWidget widget;
    ovl::ProfileView view(&widget, 2);
    view.setNumberOfValues(2);
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 2; ++column)
            view.setValue(column, row, row);
    view.drawPlots();
    widget.show();
    QTimer::singleShot(0, [&] {
        widget.renderWindow()->Render();
        view.setDirty(false);
        application.quit();
    });
    return application.exec();
}
