#pragma once

#include "widgets/WPluginDockWidget.h"

class QPlainTextEdit;

/// The dock that shows the log of the process.
class WLogPane : public WPluginDockWidget
{
    Q_OBJECT

public:
    static constexpr int cMaxLines = 5000;

    explicit WLogPane(QWidget *parent = nullptr);
    ~WLogPane() override;

private:
    QPlainTextEdit *fText;
    int fSink;
};
