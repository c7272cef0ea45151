#include <devicecontrolwidgets/control.h>

#include <leftovers.h>

#include <QTest>
#include <QWidget>

#include <memory>

namespace {

class Plain : public Control
{
};

QStringList texts(const QMenu& menu)
{
    QStringList result;
    for (const QAction* action : menu.actions())
        result.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    return result;
}

} // namespace

static QStringList words(const char* separated)
{
    return QString::fromLatin1(separated).split(QLatin1Char('|'));
}

class TestControl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(leftovers(), QString()); }
    void startsSwitchedOff();
    void contextMenu();
    void menuMayDieFirst();
    void ownership_data();
    void ownership();
    void propertyPage();
    void resort();
};

void TestControl::startsSwitchedOff()
{
    Plain control;
    QVERIFY(!control.hasContextMenu());
    QVERIFY(!control.hasEnabledContextMenu());
    QVERIFY(!control.hasPropertyPage());
    QVERIFY(!control.GetContextMenu());
    QVERIFY(!control.GetPropertyPage(nullptr, nullptr));
    QVERIFY(!control.CreateContextProperty(nullptr, nullptr));
}

void TestControl::contextMenu()
{
    ResortPopupMenu menu;
    Plain control;
    control.SetContextMenu(&menu, false);
    QVERIFY(control.hasContextMenu());
    QVERIFY(!control.hasEnabledContextMenu());
    control.EnableContextMenu(true);
    QVERIFY(control.hasEnabledContextMenu());
    QCOMPARE(control.GetContextMenu(), &menu);
    control.SetContextMenu(nullptr, true);
    QVERIFY(!control.hasEnabledContextMenu());
}

void TestControl::menuMayDieFirst()
{
    Plain control;
    auto menu = std::make_unique<ResortPopupMenu>();
    control.SetContextMenu(menu.get(), true);
    menu.reset();
    QVERIFY(!control.hasContextMenu());
}

void TestControl::ownership_data()
{
    QTest::addColumn<bool>("taken");
    QTest::newRow("taken") << true;
    QTest::newRow("left") << false;
}

void TestControl::ownership()
{
    QFETCH(bool, taken);
    QPointer<ResortPopupMenu> menu(new ResortPopupMenu);
    {
        Plain control;
        control.SetContextMenu(menu, taken);
    }
    QCOMPARE(menu.isNull(), taken);
    delete menu.data();
}

void TestControl::propertyPage()
{
    QWidget parent;
    Plain control;
    control.EnablePropertyPage(true);
    QWidget* page = control.GetPropertyPage(&parent, "page");
    QVERIFY(page);
    QCOMPARE(page->parentWidget(), &parent);
    QCOMPARE(page->objectName(), QStringLiteral("page"));
    QPointer<QWidget> window = control.CreateContextProperty(&parent, "inner");
    QVERIFY(window);
    QVERIFY(window->isWindow());
    QVERIFY(window->findChild<QWidget*>(QStringLiteral("inner")));
    window->show();
    window->close();
    QTRY_VERIFY(!window);
}

void TestControl::resort()
{
    ResortPopupMenu menu;
    for (const char* text : {"c", "a", "b"})
        menu.addAction(QString::fromLatin1(text));
    menu.addSeparator();
    for (const char* text : {"z", "y"})
        menu.addAction(QString::fromLatin1(text));
    menu.Resort();
    QCOMPARE(texts(menu), words("a|b|c|-|y|z"));
}

QTEST_MAIN(TestControl)
#include "tst_control.moc"
