#ifndef CONNECTIONAREA_H
#define CONNECTIONAREA_H

#include <QMap>
#include <QScrollArea>
#include <QVariant>

class DatabaseGroupSettings;

/// The editor of one database's connection in an area that scrolls downwards when there are many lines.
class ConnectionArea : public QScrollArea
{
    Q_OBJECT

public:
    /// \param databaseIndex  0 action log, 3 support database
    /// \param connection     read and written by the editor; not owned
    ConnectionArea(int databaseIndex, QMap<QString, QVariant> *connection, QWidget *parent);

    DatabaseGroupSettings *editor() const;
    /// \param width  the least one of the editor, in pixels
    void setEditorWidth(int width);

private:
    DatabaseGroupSettings *m_editor;
};

#endif
