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
#define OVL_HIDDEN
#else
#define OVL_EXPORT __attribute__((visibility("default")))
/// Marks a class inside an exported one that would be exported along with it.
#define OVL_HIDDEN __attribute__((visibility("hidden")))
#endif

#endif
