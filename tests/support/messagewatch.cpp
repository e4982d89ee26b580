// SPDX-License-Identifier: BSD-3-Clause
#include "messagewatch.h"

#include <vtkObjectFactory.h>
#include <vtkOutputWindow.h>
#include <vtkSmartPointer.h>

#include <QString>

#include <algorithm>
#include <gtest/gtest.h>
#include <mutex>
#include <vector>

namespace ovl::test {
namespace {

struct Record {
    std::mutex mutex; // the framework's workers report errors too
    std::vector<std::string> seen;
    std::vector<std::string> expected;
    std::vector<std::string> allowed;
};

Record& record()
{
    static Record instance;
    return instance;
}

void add(std::string message)
{
    const std::lock_guard<std::mutex> lock(record().mutex);
    record().seen.push_back(std::move(message));
}

bool containsAny(const std::string& message, const std::vector<std::string>& texts)
{
    return std::any_of(texts.begin(), texts.end(),
        [&](const std::string& text) { return message.find(text) != std::string::npos; });
}

class RecordingWindow : public vtkOutputWindow {
public:
    static RecordingWindow* New();
    vtkTypeMacro(RecordingWindow, vtkOutputWindow)
    void DisplayText(const char* text) override { add(text); }
    void DisplayErrorText(const char* text) override { add(text); }
    void DisplayWarningText(const char* text) override { add(text); }
    void DisplayGenericWarningText(const char* text) override { add(text); }
    void DisplayDebugText(const char*) override { }
};
vtkStandardNewMacro(RecordingWindow);

void recordQtMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtWarningMsg || type == QtCriticalMsg || type == QtFatalMsg)
        add("Qt: " + text.toStdString());
}

class Listener : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override
    {
        const std::lock_guard<std::mutex> lock(record().mutex);
        record().seen.clear();
        record().expected.clear();
        record().allowed.clear();
    }

    void OnTestEnd(const testing::TestInfo&) override
    {
        const std::lock_guard<std::mutex> lock(record().mutex);
        for (const std::string& message : record().seen)
            if (!containsAny(message, record().expected) && !containsAny(message, record().allowed))
                ADD_FAILURE() << "unannounced message: " << message;
        for (const std::string& text : record().expected)
            if (!std::any_of(record().seen.begin(), record().seen.end(),
                    [&](const std::string& message) { return containsAny(message, {text}); }))
                ADD_FAILURE() << "announced but not seen: " << text;
    }
};

} // namespace

void MessageWatch::install()
{
    record(); // before anything that may still report at exit
    vtkOutputWindow::SetInstance(vtkSmartPointer<RecordingWindow>::New());
    qInstallMessageHandler(recordQtMessage);
    testing::UnitTest::GetInstance()->listeners().Append(new Listener);
}

void MessageWatch::expect(std::string text)
{
    const std::lock_guard<std::mutex> lock(record().mutex);
    record().expected.push_back(std::move(text));
}

void MessageWatch::allow(std::string text)
{
    const std::lock_guard<std::mutex> lock(record().mutex);
    record().allowed.push_back(std::move(text));
}

std::size_t MessageWatch::count(const std::string& text)
{
    const std::lock_guard<std::mutex> lock(record().mutex);
    return static_cast<std::size_t>(std::count_if(record().seen.begin(), record().seen.end(),
        [&](const std::string& message) { return message.find(text) != std::string::npos; }));
}

} // namespace ovl::test
