// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_FILLING_H
#define OVL_GALLERY_FILLING_H

namespace ovl::gallery {

/**
 * Brings a file's contents to a page, piece by piece, while the page goes on with what it shows.
 * One that is destroyed before commit() has changed nothing.
 */
class Filling {
public:
    virtual ~Filling() = default;

    /** Works for some milliseconds; returns the share of the work that is done, 1 at the end. */
    virtual double work() = 0;
    /** Shows the contents; after the end of the work only. */
    virtual void commit() = 0;

    Filling() = default;
    Filling(const Filling&) = delete;
    Filling& operator=(const Filling&) = delete;
};

} // namespace ovl::gallery

#endif
