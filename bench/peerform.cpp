#include "peerform.h"

#include "liveform.h"

#include <QBuffer>
#include <QUiLoader>

QString PeerForm::lack()
{
    return {};
}

PeerForm::PeerForm(const QString& ui)
{
    QByteArray bytes = ui.toUtf8();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QUiLoader loader;
    m_window.reset(loader.load(&buffer));
}

PeerForm::~PeerForm() = default;

bool PeerForm::show()
{
    return m_window && showAndPaint(m_window.get(), contentOf(m_window.get()));
}
