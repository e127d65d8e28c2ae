#include "app/run.h"

int main() {
  return run_program();
}
