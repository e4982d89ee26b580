// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_VISUALIZATION_EXPORT_H
#define OVL_VISUALIZATION_EXPORT_H

/// Marks a class that hosts may use; everything else stays inside the shared library.
#if defined(_WIN32)
#if defined(ovl_EXPORTS)
#define OVL_EXPORT __declspec(dllexport)
#else
#define OVL_EXPORT __declspec(dllimport)
#endif
#else
#define OVL_EXPORT __attribute__((visibility("default")))
#endif

#endif
