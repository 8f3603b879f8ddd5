#include "ui/TMarkupLoader.h"

#include "log/TLogger.h"

#include <QFile>
#include <QHash>

TMarkupLoader::TMarkupLoader(QIODevice &device, const QString &name)
    : fXml(&device)
    , fFile(name)
{
}

TMarkup TMarkupLoader::loadFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        TLogger::printToLogger("Kelmora", QString("%1: %2").arg(path, file.errorString()), TLogger::cError);
        return TMarkup();
    }
    return load(file, path);
}

TMarkup TMarkupLoader::load(QIODevice &device, const QString &name)
{
    return TMarkupLoader(device, name).read();
}

void TMarkupLoader::problem(const QString &text)
{
    const QString line = QString("line %1: %2").arg(fXml.lineNumber()).arg(text);
    fMarkup.fProblems.append(line);
    TLogger::printToLogger("Kelmora", QString("%1, %2").arg(fFile, line), TLogger::cError);
}

void TMarkupLoader::passOver()
{
    problem(QString("unknown element <%1>").arg(fXml.name().toString()));
    fXml.skipCurrentElement();
}

void TMarkupLoader::checkAttributes(const QStringList &known)
{
    for (const QXmlStreamAttribute &one : fXml.attributes()) {
        if (!known.contains(one.name().toString()))
            problem(QString("unknown attribute %1 of <%2>").arg(one.name().toString(), fXml.name().toString()));
    }
}

TMarkup TMarkupLoader::read()
{
    if (fXml.readNextStartElement()) {
        if (fXml.name() != QLatin1String("mui")) {
            problem(QString("<mui> was expected, not <%1>").arg(fXml.name().toString()));
            return fMarkup;
        }
        checkAttributes({"version", "name", "toolbarcontext"});
        fMarkup.fName = attribute("name");
        fMarkup.fToolbarContext = attribute("toolbarcontext");
        while (fXml.readNextStartElement()) {
            const QStringRef name = fXml.name();
            if (name == QLatin1String("action"))
                readAction();
            else if (name == QLatin1String("menu"))
                fMarkup.fMenus.append(readMenu());
            else if (name == QLatin1String("contextmenu"))
                fMarkup.fContextMenus.append(readMenu());
            else if (name == QLatin1String("ribbon"))
                fMarkup.fRibbon.append(readRibbonPage());
            else
                passOver();
        }
    }
    fMarkup.fOk = !fXml.hasError();
    if (fXml.hasError())
        problem(fXml.errorString());
    return fMarkup;
}

void TMarkupLoader::readAction()
{
    checkAttributes({"name", "context", "version", "customizable", "invalidator"});
    TMarkupAction action;
    action.fName = attribute("name");
    action.fContext = attribute("context");
    action.fInvalidator = attribute("invalidator");
    action.fCustomizable = attribute("customizable") != QLatin1String("false");
    const bool isNamed = !action.fName.isEmpty();
    if (!isNamed)
        problem("an action without a name");
    while (fXml.readNextStartElement())
        readActionPart(action);
    if (isNamed)
        fMarkup.fActions.append(action);
}

void TMarkupLoader::readActionPart(TMarkupAction &action)
{
    const QStringRef name = fXml.name();
    if (name == QLatin1String("text"))
        action.fText = fXml.readElementText();
    else if (name == QLatin1String("icontext"))
        action.fIconText = fXml.readElementText();
    else if (name == QLatin1String("icon"))
        action.fIcon = fXml.readElementText();
    else if (name == QLatin1String("priority"))
        action.fPriority = fXml.readElementText();
    else if (name == QLatin1String("shortcut"))
        action.fShortcuts.append(fXml.readElementText());
    else if (name == QLatin1String("invalidator"))
        action.fInvalidator = fXml.readElementText();
    else if (name == QLatin1String("checkable")) {
        action.fCheckable = true;
        fXml.skipCurrentElement();
    } else {
        passOver();
    }
}

TMarkupMenu TMarkupLoader::readMenu()
{
    checkAttributes({"name", "at", "title", "version"});
    TMarkupMenu menu;
    menu.fName = attribute("name");
    menu.fAt = attribute("at");
    menu.fText = attribute("title");
    while (fXml.readNextStartElement()) {
        if (fXml.name() == QLatin1String("text"))
            menu.fText = fXml.readElementText();
        else if (!readItem(menu.fItems, false))
            passOver();
    }
    return menu;
}

bool TMarkupLoader::readItem(QVector<TMarkupItem> &items, bool inRibbon)
{
    struct TRule
    {
        TMarkupItem::TKind kind;
        QStringList attributes;
        bool ribbonOnly;
    };
    static const QHash<QString, TRule> cRules{
        {"addaction", {TMarkupItem::cAction, {"name", "size", "invalidator"}, false}},
        {"addactions", {TMarkupItem::cActions, {"menu"}, false}},
        {"addseparator", {TMarkupItem::cSeparator, {}, false}},
        {"submenu", {TMarkupItem::cSubMenu, {"name"}, false}},
        {"group", {TMarkupItem::cGroup, {"name"}, false}},
        {"addcheckbox", {TMarkupItem::cCheckBox, {"name", "action", "invalidator"}, true}},
        {"adddropdown", {TMarkupItem::cDropDown, {"name", "size", "invalidator"}, true}},
    };
    const auto rule = cRules.constFind(fXml.name().toString());
    if (rule == cRules.constEnd() || (rule->ribbonOnly && !inRibbon))
        return false;
    checkAttributes(rule->attributes);
    TMarkupItem item;
    item.fKind = rule->kind;
    item.fName = attribute(rule->kind == TMarkupItem::cActions ? "menu" : "name");
    item.fAction = attribute("action");
    item.fSize = attribute("size");
    item.fInvalidator = attribute("invalidator");
    readItems(item, inRibbon);
    items.append(item);
    return true;
}

void TMarkupLoader::readItems(TMarkupItem &parent, bool inRibbon)
{
    while (fXml.readNextStartElement()) {
        if (fXml.name() == QLatin1String("text"))
            parent.fText = fXml.readElementText();
        else if (fXml.name() == QLatin1String("icon"))
            parent.fIcon = fXml.readElementText();
        else if (!readItem(parent.fItems, inRibbon))
            passOver();
    }
}

TMarkupRibbonPage TMarkupLoader::readRibbonPage()
{
    checkAttributes({"page", "text", "context", "title", "color", "defaultForItems", "invalidator"});
    TMarkupRibbonPage page;
    page.fPage = attribute("page");
    page.fText = attribute("text");
    page.fContext = attribute("context");
    page.fTitle = attribute("title");
    page.fColor = attribute("color");
    page.fDefaultForItems = attribute("defaultForItems");
    page.fInvalidator = attribute("invalidator");
    while (fXml.readNextStartElement()) {
        if (fXml.name() == QLatin1String("group"))
            page.fGroups.append(readRibbonGroup());
        else
            passOver();
    }
    return page;
}

TMarkupRibbonGroup TMarkupLoader::readRibbonGroup()
{
    checkAttributes({"name", "text", "icon", "sizedef", "invalidator"});
    TMarkupRibbonGroup group;
    group.fName = attribute("name");
    group.fText = attribute("text");
    group.fIcon = attribute("icon");
    group.fSizes = attribute("sizedef");
    group.fInvalidator = attribute("invalidator");
    while (fXml.readNextStartElement()) {
        if (!readItem(group.fItems, true))
            passOver();
    }
    return group;
}
