// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_IMAGE_H
#define OVL_GALLERY_IMAGE_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace ovl::gallery {

/** Pixels as the image view takes them: rows from the top, without padding, colour as blue, green,
 * red. */
struct Image {
    int width = 0;
    int height = 0;
    int components = 1; // 1 or 3
    bool wide = false; // 16 bits per sample in the machine's byte order, else 8
    std::vector<unsigned char> bytes;

    std::size_t samples() const
    {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height)
            * static_cast<std::size_t>(components);
    }

    void allocate() { bytes.resize(samples() * (wide ? 2 : 1)); }

    int sample(std::size_t index) const
    {
        if (!wide)
            return bytes[index];
        std::uint16_t value = 0;
        std::memcpy(&value, bytes.data() + 2 * index, sizeof value);
        return value;
    }

    void setSample(std::size_t index, std::uint16_t value)
    {
        if (wide)
            std::memcpy(bytes.data() + 2 * index, &value, sizeof value);
        else
            bytes[index] = static_cast<unsigned char>(value);
    }
};

} // namespace ovl::gallery

#endif
