#ifndef ZORVA_BENCH_PEERFORM_H
#define ZORVA_BENCH_PEERFORM_H

#include <QString>
#include <QWidget>

#include <memory>

/// The form that Qt's run-time loader makes of the same load.
class PeerForm
{
public:
    /// What is missing to make one; empty if nothing is.
    static QString lack();

    explicit PeerForm(const QString& ui);
    ~PeerForm();
    PeerForm(const PeerForm&) = delete;
    PeerForm& operator=(const PeerForm&) = delete;

    /// False if there is no form, or no paint event came.
    bool show();

private:
    std::unique_ptr<QWidget> m_window;
};

#endif
