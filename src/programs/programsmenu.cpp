#include "programs/programsmenu.h"

bool ProgramsMenu::useCache = false;
bool ProgramsMenu::useIconsCache = false;

// Nothing is cached until there is a menu that reads the caches.

void ProgramsMenu::buildCaches(const QString &) { }

void ProgramsMenu::purgeCaches(const QString &) { }

void ProgramsMenu::purgeIconsCache() { }
