#include <QApplication>

#include "app/form1.h"
#include "platform/files.h"
#include "platform/qt/end_requests.h"
#include "platform/qt/qt_platform.h"

int main(int argc, char** argv) {
    varno::SurviveFailedWrites();
    QApplication application(argc, argv);
    varno::PrepareApplication();
    varno::QtPlatform platform(varno::ThisProgram());
    varno::Form1 form(platform);
    form.Form_Load();
    form.Show();
    const varno::EndRequests requests([&] {
        form.MainWindow().Activate();
        form.Exit_Click();
    });
    return QApplication::exec();
}
