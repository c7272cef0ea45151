#ifndef ZORVA_AUTHOR_REPLAY_H
#define ZORVA_AUTHOR_REPLAY_H

#include "enginereading.h"

#include <QHash>
#include <QSet>
#include <QXmlStreamReader>

namespace Orvane {
namespace Author {

/**
 * The engine's element handlers once more, call by call, with notes in place of
 * objects. The quirks are the engine's: a level takes the first end tag it meets
 * for its own, and a block of properties walks into what it does not know.
 */
class Replay
{
public:
    explicit Replay(const Description& description);
    void run();
    /** The same for an overlay on a form with rows of these names; of the form's rows there are those it
     * changes. */
    void runOverlay(const QSet<QString>& rows);

    const ReadForm& form() const { return m_form; }
    /** What was noted about an element that the engine did not take. */
    Fate note(int element) const { return m_notes.value(element); }
    const QSet<int>& set() const { return m_set; }
    /** The cut that nothing has repaired; -1 if there is none. */
    int cut() const { return m_cut; }
    /** Where the reader gave up; -1 if it did not. */
    int errorAt() const { return m_errorAt; }

private:
    using Properties = QMap<QString, ReadProperty>;

    QXmlStreamReader::TokenType next();
    bool nextStartElement();
    QString elementText();
    void skipElement(bool aligned);
    template <typename Handler>
    void walkChildren(Handler handleChild);

    void readRoots();
    void readForm();
    void readEnums();
    void readEnum();
    ReadEntry readEntry();
    void readScript();
    void readSheet();
    void readRow();
    void readOverlaySheet();
    /** The last block of custom properties in this one; -1 if there is none. */
    int readProperties(Properties& plain, Properties& custom, bool isCustom);
    bool readProperty(Properties& plain, Properties& custom, bool isCustom);
    void setPlain(Properties& properties, const QString& key, const QVariant& value, int element);
    void set(Properties& properties, const QString& name, const QVariant& value, int element);
    void rest(int element);

    QString attribute(const char* name) const;
    bool isAt(const char* name) const;
    void notice(int element, Cause cause, int by);

    const Description& m_description;
    QXmlStreamReader m_reader;
    ReadForm m_form;
    QHash<int, Fate> m_notes;
    QSet<int> m_set;
    int m_current = -1; // element of the start tag that was read last
    int m_depth = 0;
    int m_blockDepth = 0;
    int m_cut = -1;
    int m_errorAt = -1;
    bool m_isOverlay = false;
    QSet<QString> m_overlaid; // names of the rows that an overlay can change
};

} // namespace Author
} // namespace Orvane

#endif
