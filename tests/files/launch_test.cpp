#include "support/providertest.h"

#include <QtCore/QStringList>

TEST_F(ProviderTest, LaunchAsksTheShell)
{
    struct Case
    {
        const char *call;
        const char16_t *file;
        std::optional<std::u16string> directory;
        std::optional<std::u16string> parameters;
    };
    const Case cases[] = {
        {"launch('/Program Files/a.exe')", u"\\Program Files\\a.exe", u"\\Program Files", std::nullopt},
        {"launch('/bin/a.exe', 'x \"y\" z')", u"\\bin\\a.exe", u"\\bin", u"x \"\"\"y\"\"\" z"},
        {"launch('a.exe', '-v', 5)", u"a.exe", std::nullopt, u"-v"},
        {"launch('\\\\a.exe.txt', '-v')", u"\\a.exe.txt", u"", u"-v"},
        {"launch('/bin/A.EXE', '-v')", u"\\bin\\A.EXE", u"\\bin", std::nullopt},
        {"launch('\\\\docs\\\\a.txt', '-v')", u"\\docs\\a.txt", u"\\docs", std::nullopt},
        {"launch('/bin/a.exe', '')", u"\\bin\\a.exe", u"\\bin", std::nullopt},
    };
    for (const Case &c : cases) {
        run(QLatin1String(c.call));
        ASSERT_EQ(m_shell->executions.size(), 1U) << c.call;
        const platform::ShellExecution execution = m_shell->executions.front();
        m_shell->executions.clear();
        EXPECT_EQ(execution.file, c.file) << c.call;
        EXPECT_EQ(execution.directory, c.directory) << c.call;
        EXPECT_EQ(execution.parameters, c.parameters) << c.call;
        EXPECT_EQ(execution.mask, 0x40U);
        EXPECT_EQ(execution.show, 5);
    }
    EXPECT_EQ(takeMessages(), QStringList());
}
