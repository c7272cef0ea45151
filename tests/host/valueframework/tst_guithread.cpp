#include <recordingobserver.h>
#include <scenes.h>

#include <valueframework/tree.h>
#include <valueframework/value.h>
#include <vkbase/guithread.h>

#include <functional>
#include <memory>
#include <thread>

using namespace values;

namespace {

void inAnotherThread(const std::function<void()>& work)
{
    std::thread thread(work);
    thread.join();
}

// What a program of its own does.

void writesAValueInTheTree()
{
    auto* const value = new ValueBool(QStringLiteral("v"));
    Tree::Instance()->AddValue(QStringLiteral("/a"), value);
    inAnotherThread([value] { value->SetValue(true, nullptr); });
}

void writesAnObservedValue()
{
    ValueBool value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    inAnotherThread([&value] { value.SetValue(true, nullptr); });
}

void writesInATransaction()
{
    auto* const value = new ValueBool(QStringLiteral("v"));
    Tree::Instance()->AddValue(QStringLiteral("/a"), value);
    value->StartTransaction(nullptr);
    inAnotherThread([value] { value->SetValue(true, nullptr); });
}

void addsToTheTree()
{
    inAnotherThread(
        [] { Tree::Instance()->AddValue(QStringLiteral("/a"), new ValueBool(QStringLiteral("v"))); });
}

void removesFromTheTree()
{
    Tree::Instance()->AddValue(QStringLiteral("/a"), new ValueBool(QStringLiteral("v")));
    inAnotherThread([] { Tree::Instance()->RemoveValue(QStringLiteral("/a/v")); });
}

void keepsAValueToItself()
{
    inAnotherThread([] {
        ValueBool value(QStringLiteral("v"));
        value.SetValue(true, nullptr);
    });
}

void postsTheWrite()
{
    Tree::Instance()->AddValue(QStringLiteral("/a"), new ValueBool(QStringLiteral("v")));
    inAnotherThread([] {
        QMetaObject::invokeMethod(
            qApp,
            [] {
                if (ValueBase* const value = Tree::Instance()->GetValue(QStringLiteral("/a/v")))
                    value->SetStringValue(QStringLiteral("true"), nullptr);
            },
            Qt::QueuedConnection);
    });
    QCoreApplication::processEvents();
    if (Tree::Instance()->GetValue(QStringLiteral("/a/v"))->GetStringValue() != QLatin1String("true"))
        qFatal("the write did not arrive");
}

const QVector<Scene> scenes{
    {"writes a value in the tree", writesAValueInTheTree, true},
    {"writes an observed value", writesAnObservedValue, true},
    {"writes in a transaction", writesInATransaction, true},
    {"adds to the tree", addsToTheTree, true},
    {"removes from the tree", removesFromTheTree, true},
    {"keeps a value to itself", keepsAValueToItself, false},
    {"posts the write", postsTheWrite, false},
};

} // namespace

class TestGuiThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isThatOfTheApplication();
    void otherThreads_data();
    void otherThreads();
};

void TestGuiThread::isThatOfTheApplication()
{
    QVERIFY(isGuiThread());
    bool there = true;
    inAnotherThread([&there] { there = isGuiThread(); });
    QVERIFY(!there);
}

void TestGuiThread::otherThreads_data()
{
    addScenes(scenes);
}

void TestGuiThread::otherThreads()
{
    QFETCH(bool, stops);
    const QByteArray errors = playedApart(stops);
    QCOMPARE(errors.contains("values belong to the GUI thread"), stops);
}

int main(int argc, char** argv)
{
    return runWithScenes<TestGuiThread>(scenes, argc, argv);
}

#include "tst_guithread.moc"
