#include <hosting/viewwidget.h>
#include <visualization/imageview.h>

#include <QApplication>

#include <vector>

int main(int argc, char** argv)
{
    ovl::hosting::prepareApplication();
    QApplication application(argc, argv);

    constexpr int width = 640;
    constexpr int height = 480;
    std::vector<unsigned char> pixels(width * height); // stays ours; the view reads it in place
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            pixels[static_cast<std::size_t>(y * width + x)] = static_cast<unsigned char>(x ^ y);

    ovl::hosting::ViewWidget<ovl::ImageView> window;
    window.view().drawScene(pixels.data(), width, height, {1, 0}); // one 8-bit sample per pixel
    window.resize(width, height);
    window.show();
    return application.exec();
}
