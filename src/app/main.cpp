#include "app/Application.h"

int main(int argc, char** argv) {
    return noonward::run(argc, argv);
}
