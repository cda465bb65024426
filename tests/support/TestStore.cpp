#include "TestStore.h"

#include "store/DrinkStore.h"
#include "store/StoreBuilder.h"

#include <QFile>

QString TestStore::schemaFile() { return QStringLiteral(CORVANE_SOURCE_DATA_DIR "/schema.sql"); }
QString TestStore::deliveredStore() { return QStringLiteral(CORVANE_BUILT_DATA_DIR "/drinks.db"); }

TestStore::TestStore(const QString &rowsSql, bool withStarter)
{
    if (withStarter)
        QFile::copy(deliveredStore(), storePath());
    else
        StoreBuilder::createFromScripts(storePath(), {schemaFile()});
    if (!rowsSql.isEmpty())
        StoreBuilder::runScriptText(storePath(), rowsSql);
    m_store = std::make_unique<DrinkStore>(storePath());
}

TestStore::~TestStore() = default;
