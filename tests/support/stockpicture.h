// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_TESTS_SUPPORT_STOCKPICTURE_H
#define OVL_TESTS_SUPPORT_STOCKPICTURE_H

#include <QImage>

class vtkActor;

namespace ovl::test {

class HostFixture;

/** The picture that the framework's own mapper makes of a copy of what `actor` shows. */
QImage stockPicture(HostFixture& host, vtkActor* actor);

} // namespace ovl::test

#endif
