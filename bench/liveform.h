#ifndef ZORVA_BENCH_LIVEFORM_H
#define ZORVA_BENCH_LIVEFORM_H

#include <zorvaparser/zorvaformular.h>

#include <QExplicitlySharedDataPointer>
#include <QPointer>
#include <QWidget>

/// Size of every window that the benches show.
const int windowWidth = 800;
const int windowHeight = 600;

/// Shows a window and turns the event loop until its content has been painted.
/// False if no paint event came.
bool showAndPaint(QWidget* window, QWidget* content);
/// Three turns of the event loop: what arrangement and paint need.
void settle();
/// The content of a window that is a scroll area or holds one; null if there is none.
QWidget* contentOf(QWidget* window);

/// The library's form and its window, deleted in this order: window, form.
class LiveForm
{
public:
    explicit LiveForm(const QString& description);
    ~LiveForm();
    LiveForm(const LiveForm&) = delete;
    LiveForm& operator=(const LiveForm&) = delete;

    Orvane::ZorvaFormular* operator->() const { return m_formular.data(); }

    void createValues();
    void createGui();
    bool show();
    /// All three.
    void bringUp();

    /// Lets the form go and keeps its window.
    void dropForm();

    QWidget* window() const { return m_formular ? m_formular->GetGUI() : m_window.data(); }
    QWidget* content() const { return contentOf(window()); }

private:
    QExplicitlySharedDataPointer<Orvane::ZorvaFormular> m_formular;
    QPointer<QWidget> m_window; // of a form that is gone
};

#endif
