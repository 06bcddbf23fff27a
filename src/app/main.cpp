#include "app/Application.h"

int main(int, char** argv) {
    return noonward::run(argv);
}
