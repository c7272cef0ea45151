#ifndef ZORVA_BENCH_QMLFORM_H
#define ZORVA_BENCH_QMLFORM_H

#include <QString>

#include <memory>

class QQuickView;

/// The load as a form of Qt Quick Controls, painted without a graphics card.
class QmlForm
{
public:
    /// What is missing to make one of @p qml, as the QML engine tells it; empty if nothing is.
    static QString lack(const QString& qml);

    explicit QmlForm(const QString& qml);
    ~QmlForm();
    QmlForm(const QmlForm&) = delete;
    QmlForm& operator=(const QmlForm&) = delete;

    /// Shows the form and turns the event loop until it has been painted; false if it never was.
    bool show();

private:
    std::unique_ptr<QQuickView> m_view;
};

#endif
