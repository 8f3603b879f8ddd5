#pragma once

#include "TDocumentController.h"
#include "TFileController.h"
#include "TModeController.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "WStatusReadout.h"
#include "builtin/TJCAMPPlugin.h"
#include "canvas/TCanvasSpectrum.h"
#include "plot/TBasePlot.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"
#include "widgets/GuiUtils.h"

#include <QAction>
#include <QDockWidget>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QtTest>
#include <cmath>
#include <gtest/gtest.h>

/// A window with the plug-in, a folder for files, and message boxes that are answered.
class TWindowFixture : public ::testing::Test
{
protected:
    TWindowFixture()
    {
        TDefaultsIni::setStore(TDefaultsIni::memory);
        qputenv("XDG_STATE_HOME", QFile::encodeName(fFolder.filePath("state"))); // autosaves
        Utils::Gui::setMessageHook([this](const Utils::Gui::TMessage &message) {
            fMessages.append(message.fText);
            return fAnswer;
        });
        fHost.addBuiltIn(new TJCAMPPlugin);
        fHost.start({YREX_PLUGIN_DIR});
        fWindow = std::make_unique<WMainWindow>(fHost);
        fWindow->resize(1100, 800);
        fWindow->show();
        settle();
    }
    ~TWindowFixture() override
    {
        fWindow.reset();
        Utils::Gui::setMessageHook({});
    }

    static void settle() { QCoreApplication::processEvents(); }

    /// Writes a spectrum of `count` points from x = 100 with a peak in the middle, or several side by side.
    QString writeCsv(const QString &name, int columns = 1, int count = 101)
    {
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        for (int i = 0; i < count; ++i) {
            QByteArray line = QByteArray::number(100 + i * 10);
            for (int c = 1; c <= columns; ++c)
                line += ',' + QByteArray::number(c / (1.0 + std::pow((i - count / 2) / 10.0, 2)));
            file.write(line + '\n');
        }
        return file.fileName();
    }
    void open(const QString &path)
    {
        fWindow->files().open({path});
        settle();
        fWindow->grab(); // the plot knows its places once it was drawn
    }
    TDocument *document() { return fWindow->documents().document(); }
    WDocumentView *view() { return fWindow->documents().view(); }
    TCanvasSpectrum *item()
    {
        const TCanvasItemList items = document()->items();
        return items.isEmpty() ? nullptr : dynamic_cast<TCanvasSpectrum *>(items.first());
    }
    TBasePlot *plot() { return item()->activePlot(); }
    /// A point of the curves rectangle, by its shares from the top left, as a place of the viewport.
    QPoint at(double x, double y)
    {
        const QRectF curves = plot()->plotter()->getPlotCurvesRect();
        const QPointF place(curves.left() + x * curves.width(), curves.top() + y * curves.height());
        return view()->itemToView(*item()).map(place).toPoint();
    }
    void drag(const QPoint &from, const QPoint &to, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(view()->viewport(), button, {}, from);
        moveTo((from + to) / 2, button);
        moveTo(to, button);
        QTest::mouseRelease(view()->viewport(), button, {}, to);
        settle();
    }
    void moveTo(const QPoint &place, Qt::MouseButtons buttons = Qt::NoButton)
    {
        QMouseEvent move(QEvent::MouseMove, place, view()->viewport()->mapToGlobal(place), Qt::NoButton, buttons, {});
        QCoreApplication::sendEvent(view()->viewport(), &move);
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        view()->setFocus();
        QTest::keyClick(view(), Qt::Key(key), modifiers);
        settle();
    }
    QString lastStep() { return document()->history().stack()->undoText(); }

    QTemporaryDir fFolder;
    QMessageBox::StandardButton fAnswer = QMessageBox::Cancel;
    QStringList fMessages;
    TKelmoraHost fHost;
    std::unique_ptr<WMainWindow> fWindow;
};
