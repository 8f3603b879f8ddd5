#pragma once

#include "ScriptNames.h"
#include "TScriptInputHistory.h"

#include <QPlainTextEdit>
#include <functional>

class QCompleter;
class QScriptEngine;
class QStandardItemModel;

/// Where scripts are typed: Return runs what is complete, Shift+Return begins a line, Up and Down beyond the first and
/// last line recall earlier inputs, Tab completes names. As high as its lines, up to some.
class WScriptInput : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit WScriptInput(QWidget *parent = nullptr);

    /// Gives the engine whose objects are completed, null for none.
    void setEngine(const std::function<QScriptEngine *()> &engine) { fEngine = engine; }
    /// Shows a text, with the cursor at the end.
    void setText(const QString &text);
    /// The cursor goes to a line, from 1.
    void goToLine(int line);
    QCompleter *completer() const { return fCompleter; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    /// The settings may be others.
    void takeSettings();

signals:
    /// A whole script is to run. The editor is empty by then.
    void submitted(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    bool takeKey(const QKeyEvent &event);
    void submit();
    void followLines();
    void insertLine();
    bool typeClosing(const QString &bracket);
    bool recall(int key);
    void complete();
    void followCompletion();
    void showCompletions(const QVector<TScriptName> &names, const QString &prefix);
    void insertCompletion(const QString &name);
    void markBrackets();
    QString textBefore() const;

    std::function<QScriptEngine *()> fEngine;
    TScriptInputHistory fHistory;
    QCompleter *fCompleter;
    QStandardItemModel *fNames;
};
