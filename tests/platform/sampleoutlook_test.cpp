#include "platform/desktop/outlook/appointment.h"
#include "platform/desktop/outlook/contact.h"
#include "platform/desktop/outlook/sampleoutlook.h"
#include "platform/desktop/outlook/task.h"
#include "platform/desktop/outlook/variantdate.h"

#include <QtCore/QDateTime>
#include <QtGui/QImage>
#include <gmock/gmock.h>

TEST(SampleOutlook, IsOfTheDaysAroundToday)
{
    for (const QDate &today : {QDate(2026, 11, 21), QDate(2028, 2, 26), QDate(2030, 12, 31)}) {
        const platform::VariantDate now = platform::toVariantDate(QDateTime(today, QTime(0, 0)));
        int overdue = 0;
        int dueToday = 0;
        int appointmentsToday = 0;
        int photos = 0;
        int anniversaries = 0;
        for (const platform::SampleItem &sample : platform::sampleItems(today)) {
            platform::FileItems read;
            if (sample.path.startsWith(QLatin1String("calendar/"))) {
                read = platform::readAppointments(sample.content);
                const auto start =
                    std::static_pointer_cast<const platform::Appointment>(read.items.at(0))->first().start;
                appointmentsToday += start >= now && start < now + 1 ? 1 : 0;
            } else if (sample.path.startsWith(QLatin1String("tasks/"))) {
                read = platform::readTasks(sample.content);
                const auto task = std::static_pointer_cast<const platform::Task>(read.items.at(0));
                overdue += !task->isComplete && task->dueDate < now ? 1 : 0;
                dueToday += task->dueDate == now ? 1 : 0;
            } else {
                read = platform::readContacts(sample.content);
                const auto card = std::static_pointer_cast<const platform::Contact>(read.items.at(0));
                EXPECT_FALSE(card->texts[static_cast<std::size_t>(platform::ContactText::FileAs)].isEmpty());
                const bool isMarried =
                    !card->texts[static_cast<std::size_t>(platform::ContactText::Spouse)].isEmpty();
                anniversaries += isMarried && card->anniversary != platform::noDate ? 1 : 0;
                const QByteArray photo = platform::readContactPhoto(sample.content, 0);
                photos += QImage::fromData(photo).size() == QSize(120, 120) ? 1 : 0;
            }
            EXPECT_EQ(read.items.size(), 1u) << sample.path.toStdString();
            EXPECT_EQ(read.problem, QString()) << sample.path.toStdString();
        }
        EXPECT_EQ(overdue, 2);
        EXPECT_EQ(dueToday, 1);
        EXPECT_GE(appointmentsToday, 2);
        EXPECT_EQ(photos, 4);
        EXPECT_EQ(anniversaries, 1);
    }
}
