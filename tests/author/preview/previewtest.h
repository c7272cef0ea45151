#ifndef ZORVA_TESTS_PREVIEWTEST_H
#define ZORVA_TESTS_PREVIEWTEST_H

#include "formtext.h"
#include "leftovers.h"

#include <author/preview/previewwindow.h>
#include <zorvaparser/zorvadelegate.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// Base of a test of the preview's window on a form in a folder of its own.
class PreviewTest : public QObject
{
    Q_OBJECT

protected:
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Orvane::Author::PreviewWindow> m_window;

    QString path(const char* name = "form.zorva") const
    {
        return m_folder->filePath(QString::fromLatin1(name));
    }
    void write(const QByteArray& bytes, const char* name = "form.zorva") const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }
    void write(const QString& text, const char* name = "form.zorva") const { write(text.toUtf8(), name); }
    /// The window on what was written, with the keyboard.
    void open(Orvane::Author::PreviewOptions options = Orvane::Author::PreviewOptions())
    {
        options.file = path();
        m_window = std::make_unique<Orvane::Author::PreviewWindow>(options);
        m_window->show();
        m_window->reload();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }
    /// Writes the file and waits until the window has taken it up.
    void save(const QString& text)
    {
        const QSignalSpy reloaded(m_window.get(), &Orvane::Author::PreviewWindow::reloaded);
        write(text);
        QTRY_VERIFY(!reloaded.isEmpty());
    }
    template <typename Widget>
    Widget* find(const char* name) const
    {
        return m_window->findChild<Widget*>(QString::fromLatin1(name));
    }
    Orvane::ZorvaFormular& form() const { return m_window->form()->form(); }
    /// What a row holds, as text; null if there is none.
    QString held(const char* row) const
    {
        const values::ValueBase* const value = form().GetVTValue(QString::fromLatin1(row));
        return value ? value->GetStringValue() : QString();
    }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void cleanup()
    {
        m_window.reset();
        m_folder.reset();
        QCOMPARE(leftovers(), QString());
    }
};

#endif
