#include "app/app.h"

int main(int argc, char** argv) {
    App app(argc, argv);
    app.start();
    return app.exec();
}
