// Does nothing. Its instructions are the baseline for veldrin-calendar --status.
int main() {
  return 0;
}
