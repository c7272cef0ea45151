#include "previewtest.h"
#include "translationfile.h"

#include <author/preview/keyboardfocus.h>
#include <author/preview/parameterspane.h>
#include <author/preview/placelist.h>
#include <author/preview/valuespane.h>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>

#include <algorithm>
#include <sys/stat.h>

using namespace Orvane::Author;
using hostkit::RowState;

/// The preview as an author uses it: keys and clicks in a real window.
class TestPreviewWindow : public PreviewTest
{
    Q_OBJECT

    /// A form whose second state differs from the first by `more`.
    static QString description(const QString& more = QString(), const QString& script = QString())
    {
        return formXml(
            rowXml("LineEdit", "remark", {{"labelText", "Remark"}}) +
                rowXml("SpinBox", "gain", {{"labelText", "Gain"}, {"value", 3}, {"maximum", 500}}) +
                rowXml("CheckBox", "lock", {{"labelText", "Lock"}}) + more,
            QString(), script);
    }
    QWidget* control(const char* name) const
    {
        return m_window->form()->window()->findChild<QWidget*>(QString::fromLatin1(name));
    }
    QLineEdit* field(const char* name) const
    {
        QWidget* const found = control(name);
        auto* const itself = qobject_cast<QLineEdit*>(found);
        return itself ? itself : found->findChild<QLineEdit*>();
    }
    void type(const char* row, const char* text)
    {
        control(row)->setFocus();
        field(row)->selectAll();
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(m_window->windowHandle(), key, modifiers);
    }
    QWidget* switchOfBar() const
    {
        const QList<QCheckBox*> boxes = m_window->form()->window()->findChildren<QCheckBox*>();
        const auto isOfBar = [this](const QCheckBox* box) {
            return !form().GetSheet().Content()->isAncestorOf(box);
        };
        const auto found = std::find_if(boxes.cbegin(), boxes.cend(), isOfBar);
        return found == boxes.cend() ? nullptr : *found;
    }
    /// Chooses a file in the dialog that opens next.
    void answerDialog(const char* name)
    {
        auto* const look = new QTimer(m_window.get());
        connect(look, &QTimer::timeout, m_window.get(), [look, file = path(name)] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            look->stop();
            auto* const field = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            field->setText(file);
            QTest::keyClick(field, Qt::Key_Return);
        });
        look->start(10);
    }
    RowState state(const char* row) const
    {
        return m_window->findChild<DeviceSimulation*>()->link()->states().state(QString::fromLatin1(row));
    }
    void applyGain(const char* text)
    {
        type("gain", text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        form().applyNow();
    }

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void whatIsTypedIsCarriedOver()
    {
        write(description());
        open();
        type("remark", "to be kept\r");
        save(description(rowXml("LineEdit", "later")));
        QCOMPARE(held("remark"), QStringLiteral("to be kept"));
        QVERIFY(control("later"));
        QCOMPARE(find<PlaceList>("keptAside")->topLevelItemCount(), 0);
    }
    void whatIsHalfTypedGoesOn_data()
    {
        QTest::addColumn<QByteArray>("row");
        QTest::newRow("line edit") << QByteArray("remark");
        QTest::newRow("spin box") << QByteArray("gain");
    }
    void whatIsHalfTypedGoesOn()
    {
        QFETCH(QByteArray, row);
        write(description());
        open();
        type(row.constData(), "12");
        save(description(rowXml("LineEdit", "later")));
        QVERIFY(control(row.constData())->isAncestorOf(QApplication::focusWidget()) ||
                control(row.constData()) == QApplication::focusWidget());
        QCOMPARE(field(row.constData())->text(), QStringLiteral("12"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5\r"));
        QCOMPARE(held(row.constData()), QStringLiteral("125"));
    }
    void whatTheFormDoesNotTakeIsListed()
    {
        write(description());
        open();
        type("gain", "400\r");
        type("remark", "half");
        save(formXml(rowXml("CheckBox", "lock")));
        const auto* const list = find<PlaceList>("keptAside");
        QCOMPARE(list->topLevelItemCount(), 2);
        QCOMPARE(list->topLevelItem(0)->text(0), QStringLiteral("Gain"));
        QCOMPARE(list->topLevelItem(0)->text(1), QStringLiteral("400"));
        QCOMPARE(list->topLevelItem(1)->text(1), QStringLiteral("half"));
        QVERIFY(list->isVisible());
        save(description());
        QCOMPARE(held("gain"), QStringLiteral("400"));
        QCOMPARE(list->topLevelItemCount(), 0);
    }
    void theKeyboardIsInTheFormFromTheBeginning()
    {
        write(description());
        open();
        QVERIFY(m_window->form()->window()->isAncestorOf(QApplication::focusWidget()));
    }
    void theKeyboardStaysInTheForm_data()
    {
        QTest::addColumn<QString>("place");
        QTest::newRow("a headline") << QStringLiteral("head");
        QTest::newRow("a row that goes") << QStringLiteral("short");
        QTest::newRow("the bar") << QString();
    }
    void theKeyboardStaysInTheForm()
    {
        QFETCH(QString, place);
        const QString head = rowXml("Headline", "head", {{"text", "Head"}});
        write(description(head + rowXml("CheckBox", "short")));
        open();
        QWidget* const start = place.isNull() ? switchOfBar() : control(place.toLatin1().constData());
        QVERIFY(start);
        QVERIFY(focusInside(*start));
        save(description(head));
        QWidget* const window = m_window->form()->window();
        QVERIFY(window->isAncestorOf(QApplication::focusWidget()));
        if (place == QLatin1String("head"))
            QVERIFY(hasFocusInside(*control("head")));
    }
    void anOpenListIsNotTakenAway()
    {
        write(formXml(rowXml("ComboBox", "mode", {{"enumName", "Modes"}}),
                      enumXml("Modes", {{"Wide", "WIDE", "w"}, {"Narrow", "NARROW", "n"}})));
        open();
        auto* const box = m_window->form()->window()->findChild<QComboBox*>(QStringLiteral("mode"));
        box->showPopup();
        QTRY_VERIFY(QApplication::activePopupWidget());
        const QSignalSpy reloaded(m_window.get(), &PreviewWindow::reloaded);
        const QPointer<QComboBox> alive(box);
        write(description());
        QTRY_VERIFY(m_window->statusBar()->currentMessage().contains(QLatin1String("waits")));
        QVERIFY(alive);
        box->hidePopup();
        QTRY_COMPARE(reloaded.count(), 1);
        QVERIFY(!alive);
        QCOMPARE(m_window->statusBar()->currentMessage(), QString());
    }
    void problemsLeadToTheEditor()
    {
        const QString wrong = description().replace(QLatin1String("labelText"), QLatin1String("labeltext"));
        write(wrong);
        QStringList calls;
        open();
        m_window->setEditor([&calls](const QString& file, int line, int) {
            calls << QStringLiteral("%1:%2").arg(QFileInfo(file).fileName()).arg(line);
            return QString();
        });
        auto* const list = find<PlaceList>("problems");
        QTRY_VERIFY(list->topLevelItemCount() > 0);
        const QList<QTreeWidgetItem*> found =
            list->findItems(QStringLiteral("labeltext"), Qt::MatchContains, 1);
        QVERIFY(!found.isEmpty());
        QTreeWidgetItem* const first = found.first();
        const QString place = QStringLiteral("form.zorva:") + first->text(0);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          list->visualItemRect(first).center());
        QCOMPARE(calls, QStringList(place));
        key(Qt::Key_1, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), list);
        list->setCurrentItem(first);
        key(Qt::Key_Return);
        QCOMPARE(calls, (QStringList{place, place}));
        key(Qt::Key_F8);
        QCOMPARE(calls.size(), 3);
        save(description());
        QTRY_VERIFY(list->findItems(QStringLiteral("labeltext"), Qt::MatchContains, 1).isEmpty());
    }
    void problemsAreThoseOfTheChecker()
    {
        const QByteArray bytes =
            description().replace(QLatin1String("SpinBox"), QLatin1String("Spinbox")).toUtf8();
        write(bytes);
        open();
        const auto* const list = find<PlaceList>("problems");
        const CheckedFile checked = check(path(), bytes);
        QTRY_COMPARE(list->topLevelItemCount(), checked.findings.size());
        for (int i = 0; i < checked.findings.size(); ++i) {
            QCOMPARE(list->topLevelItem(i)->text(1), checked.findings.at(i).message);
            QCOMPARE(list->topLevelItem(i)->text(3), checked.findings.at(i).id);
        }
    }
    void theScriptSpeaks()
    {
        write(description(QString(), QStringLiteral("print('hello');\nthrow 'too bad';")));
        open();
        const auto* const list = find<PlaceList>("scriptOutput");
        QCOMPARE(list->topLevelItemCount(), 2);
        QCOMPARE(list->topLevelItem(0)->text(1), QStringLiteral("hello"));
        QCOMPARE(list->topLevelItem(1)->text(1), QStringLiteral("too bad"));
        QFile file(path());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QList<QByteArray> lines = file.readAll().split('\n');
        QVERIFY(lines.at(PlaceList::lineOf(*list->topLevelItem(1)) - 1).contains("too bad"));
        save(description());
        QCOMPARE(list->topLevelItemCount(), 0);
    }
    void anEndlessHandlerIsStopped()
    {
        write(description(QString(),
                          QStringLiteral("lock.toggled.connect(function(on) {\nwhile (on);\n});\n"
                                         "gain.valueChanged.connect(function() { print('still here'); });")));
        PreviewOptions options;
        options.longestScript = 100;
        open(options);
        control("lock")->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        const auto* const list = find<PlaceList>("scriptOutput");
        QTRY_COMPARE(list->topLevelItemCount(), 1);
        QVERIFY2(list->topLevelItem(0)->text(1).startsWith(QLatin1String("stopped")),
                 qPrintable(list->topLevelItem(0)->text(1)));
        QFile file(path());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QList<QByteArray> lines = file.readAll().split('\n');
        QVERIFY(lines.at(PlaceList::lineOf(*list->topLevelItem(0)) - 1).contains("while"));
        // Form, script and window go on.
        QCOMPARE(held("lock"), QStringLiteral("true"));
        type("gain", "9\r");
        QCOMPARE(list->topLevelItemCount(), 2);
        QCOMPARE(list->topLevelItem(1)->text(1), QStringLiteral("still here"));
        save(description());
        QCOMPARE(held("gain"), QStringLiteral("9"));
    }
    void aSaveWhileAHandlerRuns()
    {
        write(
            description(QString(), QStringLiteral("lock.toggled.connect(function() { while (true) {} });")));
        PreviewOptions options;
        options.longestScript = 100;
        open(options);
        const QSignalSpy reloaded(m_window.get(), &PreviewWindow::reloaded);
        int during = -1;
        write(description());
        // Comes while the handler runs, which it needs its form for.
        QTimer::singleShot(0, m_window.get(), [&] {
            m_window->reload();
            during = reloaded.count();
        });
        control("lock")->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QCOMPARE(during, 0);
        QTRY_VERIFY(!reloaded.isEmpty());
        QCOMPARE(held("lock"), QStringLiteral("true"));
    }
    void valuesFollowTheForm()
    {
        write(description());
        open();
        const auto* const pane = find<ValuesPane>("valuesPane");
        QTRY_COMPARE(pane->topLevelItemCount(), 3);
        type("gain", "44\r");
        QTRY_COMPARE(pane->topLevelItem(1)->text(ValuesPane::Text), QStringLiteral("44"));
        QTRY_COMPARE(pane->topLevelItem(1)->text(ValuesPane::State), QStringLiteral("not applied"));
        form().applyNow();
        QTRY_COMPARE(pane->topLevelItem(1)->text(ValuesPane::State), QString());
    }
    void parameterXml()
    {
        write(description());
        open();
        key(Qt::Key_5, Qt::ControlModifier);
        auto* const which = find<QComboBox>("parametersSelection");
        QCOMPARE(QApplication::focusWidget(), which);
        const auto* const text = find<QPlainTextEdit>("parametersText");
        QTRY_VERIFY(text->toPlainText().contains(QLatin1String("<gain>3</gain>")));
        key(Qt::Key_Down);
        QCOMPARE(text->toPlainText(), QString());
        type("gain", "44\r");
        QTRY_VERIFY(text->toPlainText().contains(QLatin1String("<gain>44</gain>")));
        QVERIFY(!text->toPlainText().contains(QLatin1String("lock")));
        form().applyNow();
        QTRY_COMPARE(text->toPlainText(), QString());
        which->setFocus();
        key(Qt::Key_Down);
        QVERIFY(text->toPlainText().contains(QLatin1String("<gain>44</gain>")));
    }
    void looks()
    {
        write(description());
        open();
        QWidget* const window = m_window->form()->window();
        find<QSpinBox>("lookWidth")->setValue(480);
        QTRY_COMPARE(window->width(), 480);
        find<QSpinBox>("lookTextSize")->setValue(17);
        QCOMPARE(control("gain")->font().pointSize(), 17);
        key(Qt::Key_R, Qt::ControlModifier);
        QCOMPARE(control("gain")->layoutDirection(), Qt::RightToLeft);
        QCOMPARE(m_window->layoutDirection(), Qt::LeftToRight);
        const QPalette before = QApplication::palette();
        key(Qt::Key_D, Qt::ControlModifier);
        QVERIFY(control("gain")->palette().color(QPalette::Base).lightness() < 100);
        auto* const style = find<QComboBox>("lookStyle");
        style->setCurrentIndex(style->findText(QStringLiteral("windows"), Qt::MatchFixedString));
        QCOMPARE(QApplication::style()->objectName().toLower(), QStringLiteral("windows"));
        // The next state looks alike.
        save(description(rowXml("LineEdit", "later")));
        QTRY_COMPARE(m_window->form()->window()->width(), 480);
        QCOMPARE(control("later")->font().pointSize(), 17);
        QCOMPARE(control("later")->layoutDirection(), Qt::RightToLeft);
        find<QSpinBox>("lookTextSize")->setValue(0);
        QVERIFY(control("gain")->font().pointSize() < 17);
        key(Qt::Key_D, Qt::ControlModifier);
        QApplication::setStyle(QStringLiteral("fusion"));
        QApplication::setPalette(before);
    }
    void languages()
    {
        write(translationFile({{"gain", "Gain", "", QStringLiteral("Verstärkung")}}), "form_de.qm");
        write(translationFile({{"gain", "Gain", "", QStringLiteral("Volume")}}), "other_fr.qm");
        write(description());
        open();
        const auto gain = [this] {
            Orvane::ZorvaDelegate& row = *form().GetSheet().GetWidget(QStringLiteral("gain"))->GetDelegate();
            return row.GetTranslated("labelText");
        };
        const auto isShown = [this](const QString& caption) {
            const QList<QLabel*> labels = m_window->form()->window()->findChildren<QLabel*>();
            return std::any_of(labels.cbegin(), labels.cend(),
                               [&caption](const QLabel* label) { return label->text() == caption; });
        };
        auto* const language = find<QComboBox>("lookLanguage");
        QCOMPARE(language->count(), 2);
        type("gain", "9\r");
        language->setFocus();
        QTest::keyClick(language, Qt::Key_Down);
        QCOMPARE(language->currentText(), QStringLiteral("de"));
        QTRY_COMPARE(gain(), QStringLiteral("Verstärkung"));
        QTRY_VERIFY(isShown(QStringLiteral("Verstärkung")));
        const auto* const values = find<ValuesPane>("valuesPane");
        const auto listed = [values](const QString& caption) {
            return values->findItems(caption, Qt::MatchExactly, ValuesPane::Caption).size();
        };
        QTRY_COMPARE(listed(QStringLiteral("Verstärkung")), 1);
        QCOMPARE(held("gain"), QStringLiteral("9"));
        // The next state speaks it, too.
        save(description(rowXml("LineEdit", "later")));
        QVERIFY(isShown(QStringLiteral("Verstärkung")));
        QTest::keyClick(language, Qt::Key_Up);
        QTRY_VERIFY(isShown(QStringLiteral("Gain")));
    }
    void device_data()
    {
        QTest::addColumn<int>("manner");
        QTest::addColumn<RowState>("end");
        QTest::addColumn<QString>("shown");
        QTest::newRow("confirms") << 1 << RowState::Confirmed << QStringLiteral("77");
        QTest::newRow("late") << 2 << RowState::Confirmed << QStringLiteral("77");
        QTest::newRow("refuses") << 3 << RowState::Refused << QString();
        QTest::newRow("its own") << 4 << RowState::Differing << QStringLiteral("3");
    }
    void device()
    {
        QFETCH(int, manner);
        QFETCH(RowState, end);
        QFETCH(QString, shown);
        write(description());
        open();
        find<QSpinBox>("deviceDelay")->setValue(300);
        find<QComboBox>("deviceManner")->setCurrentIndex(manner);
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        applyGain("77");
        if (manner == 2)
            QCOMPARE(state("gain"), RowState::Requested);
        QTRY_COMPARE(state("gain"), end);
        if (!shown.isNull())
            QTRY_COMPARE(held("gain"), shown);
        find<QComboBox>("deviceManner")->setCurrentIndex(0);
        QVERIFY(!m_window->findChild<DeviceSimulation*>()->link());
    }
    void theDeviceKeepsItsValuesAndChangesThem()
    {
        write(description());
        open();
        find<QComboBox>("deviceManner")->setCurrentIndex(1);
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        applyGain("77");
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        save(description(rowXml("LineEdit", "later")));
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        QCOMPARE(held("gain"), QStringLiteral("77"));
        auto* const device = m_window->findChild<DeviceSimulation*>();
        device->drift();
        QTRY_COMPARE(held("gain"), QStringLiteral("78"));
        device->drift();
        QTRY_COMPARE(held("lock"), QStringLiteral("true"));
    }
    void anOverlayThatBecomesAPipe()
    {
        write(description());
        write(formXml(widgetXml("SpinBox", "gain", {{"labelText", "Louder"}})), "over.zorva");
        PreviewOptions options;
        options.overlay = path("over.zorva");
        open(options);
        QVERIFY(QFile::remove(options.overlay));
        QCOMPARE(mkfifo(qPrintable(options.overlay), 0600), 0);
        m_window->reload();
        QCOMPARE(find<PlaceList>("overlayChanges")->topLevelItemCount(), 0);
    }
    void theDeviceChangesByItself()
    {
        write(description());
        open();
        key(Qt::Key_6, Qt::ControlModifier);
        key(Qt::Key_Down);
        QTRY_COMPARE(state("gain"), RowState::Confirmed);
        auto* const drift = find<QCheckBox>("deviceDrift");
        drift->setFocus();
        key(Qt::Key_Space);
        QTRY_COMPARE_WITH_TIMEOUT(held("gain"), QStringLiteral("4"), 30000);
        QVERIFY(find<QPlainTextEdit>("deviceLog")
                    ->toPlainText()
                    .contains(QLatin1String("changed by the device")));
        key(Qt::Key_Space);
        QVERIFY(!drift->isChecked());
    }
    void overlay()
    {
        write(description());
        write(formXml(widgetXml("SpinBox", "gain", {{"labelText", "Louder"}}) +
                      widgetXml("LineEdit", "none", {{"visible", true}})),
              "over.zorva");
        PreviewOptions options;
        options.overlay = path("over.zorva");
        open(options);
        const auto gain = [this] {
            return form()
                .GetSheet()
                .GetWidget(QStringLiteral("gain"))
                ->GetDelegate()
                ->GetString("labelText", QString());
        };
        QCOMPARE(gain(), QStringLiteral("Louder"));
        const auto* const list = find<PlaceList>("overlayChanges");
        const auto change = [list](const char* name) {
            return list->findItems(QString::fromLatin1(name), Qt::MatchExactly, 1).value(0);
        };
        QVERIFY(change("labelText"));
        QCOMPARE(change("labelText")->text(2), QStringLiteral("Gain"));
        QCOMPARE(change("labelText")->text(3), QStringLiteral("Louder"));
        QVERIFY(!list->findItems(QStringLiteral("dropped"), Qt::MatchStartsWith, 1).isEmpty());
        type("gain", "9\r");
        key(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(gain(), QStringLiteral("Gain"));
        QCOMPARE(held("gain"), QStringLiteral("9"));
        // It is watched like the form.
        const QSignalSpy reloaded(m_window.get(), &PreviewWindow::reloaded);
        write(formXml(widgetXml("SpinBox", "gain", {{"labelText", "Quieter"}})), "over.zorva");
        QTRY_VERIFY(!reloaded.isEmpty());
        QCOMPARE(change("labelText")->text(3), QStringLiteral("Quieter"));
    }
    void anOverlayTriedOnACopyDoesNotHangTheWindow()
    {
        write(description(QString(), QStringLiteral("remark.textChanged.connect(function() {\n"
                                                    "while (true) {}\n});")));
        write(formXml(widgetXml("LineEdit", "remark", {{"text", "x"}})), "over.zorva");
        PreviewOptions options;
        options.overlay = path("over.zorva");
        options.longestScript = 100;
        open(options);
        const auto* const list = find<PlaceList>("overlayChanges");
        const auto stops = [list] {
            return list->findItems(QStringLiteral("stopped"), Qt::MatchStartsWith, 1).size();
        };
        QCOMPARE(stops(), 1);
        // The copy has it, whether or not the form has.
        key(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(held("remark"), QString());
        QCOMPARE(stops(), 1);
        QVERIFY(!m_window->form()->log().hasStopped());
    }
    void picture()
    {
        QString rows;
        for (int i = 0; i < 80; ++i)
            rows += rowXml("LineEdit", QByteArray("row" + QByteArray::number(i)).constData());
        write(formXml(rows));
        open();
        const QImage picture = m_window->picture();
        const QWidget* const content = form().GetSheet().Content();
        QCOMPARE(picture.size() / picture.devicePixelRatio(), content->size());
        QVERIFY(picture.height() > m_window->height());
    }
    void pictureAndOverlayByTheKeyboard()
    {
        write(description());
        write(formXml(widgetXml("SpinBox", "gain", {{"labelText", "Louder"}})), "over.zorva");
        open();
        answerDialog("picture.png");
        key(Qt::Key_S, Qt::ControlModifier);
        const QImage saved(path("picture.png"));
        QCOMPARE(saved.size(), m_window->picture().size());
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        answerDialog("over.zorva");
        key(Qt::Key_O, Qt::ControlModifier);
        const auto* const list = find<PlaceList>("overlayChanges");
        QTRY_COMPARE(list->topLevelItemCount(), 1);
        QVERIFY(list->isVisible());
    }
    // Each is a step of Tab, and says what it is to those who do not see it.
    void allThatTabReachesHasAName()
    {
        write(description().replace(QLatin1String("labelText"), QLatin1String("labeltext")));
        open();
        find<QComboBox>("deviceManner")->setCurrentIndex(1);
        write(QByteArray("<KVParamGui>"));
        QTRY_VERIFY(!m_window->reason().isEmpty());
        int reached = 0;
        for (int pane = 1; pane <= 7; ++pane) {
            key(static_cast<Qt::Key>(Qt::Key_0 + pane), Qt::ControlModifier);
            const QWidget* const dock = m_window->findChild<QDockWidget*>(QStringLiteral("pane%1").arg(pane));
            QTRY_VERIFY(dock->isAncestorOf(QApplication::focusWidget()));
            for (QWidget* next = m_window->nextInFocusChain(); next != m_window.get();
                 next = next->nextInFocusChain()) {
                if (!(next->focusPolicy() & Qt::TabFocus) || !next->isVisible() || !next->isEnabled() ||
                    next->focusProxy())
                    continue;
                ++reached;
                const QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(next);
                QVERIFY2(seen && !seen->text(QAccessible::Name).isEmpty(),
                         qPrintable(QStringLiteral("%1 %2").arg(
                             QString::fromLatin1(next->metaObject()->className()), next->objectName())));
            }
        }
        QVERIFY(reached > 7);
    }
    void everyPaneHasANameAndAKey()
    {
        write(description());
        open();
        const int count = m_window->findChildren<QDockWidget*>().size();
        QCOMPARE(count, 7);
        for (int i = 0; i < count; ++i) {
            const QDockWidget* const pane =
                m_window->findChild<QDockWidget*>(QStringLiteral("pane%1").arg(i + 1));
            QVERIFY(!pane->accessibleName().isEmpty());
            key(static_cast<Qt::Key>(Qt::Key_1 + i), Qt::ControlModifier);
            QTRY_VERIFY(pane->isAncestorOf(QApplication::focusWidget()));
            QVERIFY2(!QApplication::focusWidget()->accessibleName().isEmpty() ||
                         qobject_cast<QComboBox*>(QApplication::focusWidget()),
                     qPrintable(pane->windowTitle()));
        }
        key(Qt::Key_0, Qt::ControlModifier);
        QVERIFY(m_window->form()->window()->isAncestorOf(QApplication::focusWidget()));
        key(Qt::Key_L, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), find<QSpinBox>("lookWidth"));
    }
    void anEmptyListSaysWhy()
    {
        write(description());
        open();
        const auto* const problems = find<PlaceList>("problems");
        QTRY_VERIFY(problems->accessibleDescription().contains(QLatin1String("No problems")));
        QVERIFY(find<PlaceList>("overlayChanges")->accessibleDescription().contains(QLatin1String("Ctrl+O")));
    }
    void whatNothingCostsTakesNoRoom()
    {
        write(description().replace(QLatin1String("labelText"), QLatin1String("labeltext")));
        open();
        const auto* const problems = find<PlaceList>("problems");
        QTRY_VERIFY(problems->topLevelItemCount() > 0);
        QVERIFY(problems->isColumnHidden(2));
        save(description(QStringLiteral("<Group>%1</Group>").arg(rowXml("CheckBox", "lost"))));
        QTRY_VERIFY(!problems->isColumnHidden(2));
    }
    void f6WalksThePanes()
    {
        write(description());
        open();
        key(Qt::Key_0, Qt::ControlModifier);
        const QWidget* const first = QApplication::focusWidget();
        QSet<QWidget*> seen;
        for (int i = 0; i < 3; ++i) {
            seen.insert(QApplication::focusWidget());
            key(Qt::Key_F6);
        }
        QCOMPARE(seen.size(), 3);
        QVERIFY(m_window->form()->window()->isAncestorOf(QApplication::focusWidget()));
        key(Qt::Key_F6, Qt::ShiftModifier);
        QVERIFY(QApplication::focusWidget() != first);
    }
};

QTEST_MAIN(TestPreviewWindow)
#include "tst_previewwindow.moc"
