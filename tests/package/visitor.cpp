// SPDX-License-Identifier: BSD-3-Clause
// Uses a program as a visitor would: waits for its window, looks at it, closes it by its frame's
// button, and expects that the program then ends well and without a word. visitor PICTURE PROGRAM
// Fails when nothing is drawn in the window. The picture is written in any case.
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <xcb/xcb.h>

namespace {

constexpr int kPatience = 30000; // ms; virtual screens on busy machines are slow
constexpr std::size_t kColours = 8; // more than a window with buttons has, less than any view

template <class T> using Reply = std::unique_ptr<T, decltype(&std::free)>;

/** The X server that the program shows its window on. */
class Screen {
public:
    Screen()
        : connection(xcb_connect(nullptr, nullptr))
        , root(xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root)
        , protocols(atom("WM_PROTOCOLS"))
        , closing(atom("WM_DELETE_WINDOW"))
    {
    }
    ~Screen() { xcb_disconnect(connection); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /** The first window in sight that can be closed, or 0. */
    xcb_window_t window() const
    {
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection, xcb_query_tree(connection, root), nullptr),
            &std::free);
        const xcb_window_t* children = xcb_query_tree_children(tree.get());
        for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i)
            if (isShown(children[i]) && canBeClosed(children[i]))
                return children[i];
        return 0;
    }

    void close(xcb_window_t window) const
    {
        xcb_client_message_event_t event {};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = protocols;
        event.data.data32[0] = closing;
        xcb_send_event(connection, 0, window, 0, reinterpret_cast<const char*>(&event));
        xcb_flush(connection);
    }

private:
    xcb_atom_t atom(const std::string& name) const
    {
        const auto cookie
            = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
        const Reply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, cookie, nullptr), &std::free);
        return reply->atom;
    }

    bool isShown(xcb_window_t window) const
    {
        const Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(
                connection, xcb_get_window_attributes(connection, window), nullptr),
            &std::free);
        return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    bool canBeClosed(xcb_window_t window) const
    {
        const Reply<xcb_get_property_reply_t> property(
            xcb_get_property_reply(connection,
                xcb_get_property(connection, 0, window, protocols, XCB_ATOM_ATOM, 0, 1), nullptr),
            &std::free);
        return property && xcb_get_property_value_length(property.get()) > 0;
    }

    xcb_connection_t* connection;
    xcb_window_t root;
    xcb_atom_t protocols;
    xcb_atom_t closing;
};

QImage look(xcb_window_t window)
{
    return QGuiApplication::primaryScreen()->grabWindow(window).toImage().convertToFormat(
        QImage::Format_RGB32);
}

bool showsSomething(const QImage& image)
{
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); y += 3)
        for (int x = 0; x < image.width(); x += 3)
            colours.insert(image.pixel(x, y));
    return colours.size() > kColours;
}

int fail(const char* what, const QProcess& program)
{
    std::fprintf(stderr, "visitor: %s %s\n", qPrintable(program.program()), what);
    return 1;
}

int visit(QProcess& program, const QString& picture)
{
    const Screen screen;
    QElapsedTimer clock;
    clock.start();
    xcb_window_t window = 0;
    QImage seen;
    while (!showsSomething(seen)) {
        if (program.state() == QProcess::NotRunning)
            return fail("ended before it showed anything", program);
        if (clock.elapsed() > kPatience)
            return fail(window ? "draws nothing" : "shows no window", program);
        program.waitForFinished(100);
        window = screen.window();
        seen = window ? look(window) : QImage();
        seen.save(picture);
    }
    screen.close(window);
    if (!program.waitForFinished(kPatience))
        return fail("does not end when its window is closed", program);
    if (program.exitStatus() != QProcess::NormalExit || program.exitCode() != 0)
        return fail("ended badly", program);
    const QByteArray words = program.readAll();
    std::fputs(words.constData(), stderr);
    return words.isEmpty() ? 0 : fail("said the above", program);
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: visitor PICTURE PROGRAM\n", stderr);
        return 2;
    }
    // Qt grumbles where there is no folder for what a session keeps.
    const QTemporaryDir session;
    qputenv("XDG_RUNTIME_DIR", session.path().toLocal8Bit());
    QProcess program;
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(arguments[2], QStringList());
    if (!program.waitForStarted())
        return fail("does not start", program);
    const int result = visit(program, arguments[1]);
    program.kill();
    program.waitForFinished();
    return result;
}
