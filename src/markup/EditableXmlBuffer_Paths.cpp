// Element paths: "/fo:root/fo:page-sequence/fo:flow/fo:block", root first.

#include "markup/EditableXmlBuffer.h"

// The path of the current element at `position`. The walk ends after the step whose name
// is the root's, when it runs out, or, with `rootPosition` given, when it reaches that
// position.
Core::String EditableXmlBuffer::pathUpFrom(int position, int rootPosition) const
{
    if (position < 0)
        return Core::String();
    Core::String path;
    int t = position;
    for (;;) {
        Core::String name;
        t = getCurrentElementNameAndPos(t, name);
        path = u"/" + name + path;
        if (name == rootElement || t < 0 || (rootPosition >= 0 && t == rootPosition))
            return path;
    }
}

Core::String EditableXmlBuffer::getPathForPosition(int position) const
{
    return pathUpFrom(position, -1);
}

Core::String EditableXmlBuffer::getElementPath(int position) const
{
    if (position < 0)
        return Core::String();
    return pathUpFrom(position, getRootElementPos());
}

// The ancestor of `from` (or its current element) whose path is `path`; -1 when no
// ancestor has it.
int EditableXmlBuffer::getElementPositionFromPath(Core::String const &path, int from) const
{
    if (path.isEmpty())
        return getCurrentElementPosition(from);
    if (path == u"/" + rootElement)
        return getRootElementPos();
    Core::String walked = getElementPath(from);
    int t = from;
    while (walked != path) {
        if (walked.isEmpty())
            break;
        t = getCurrentElementPosition(t);
        const int slash = walked.rFind(u'/');
        walked = walked.subString(0, slash - 1);
        if (walked.find(u'/') < 0)
            break;
    }
    return getCurrentElementPosition(t);
}

// `path` up to and including the last occurrence of `name`; all of `path` when `name` is
// empty or absent.
Core::String EditableXmlBuffer::getPathToParent(Core::String const &path, Core::String name)
{
    if (name.isEmpty())
        return path;
    const int at = path.rFind(name);
    return at < 0 ? path : path.subString(0, at + name.length() - 1);
}
