// Does nothing. Linked like veldrin-calendar; its instructions are the baseline for a process.
int main() {
  return 0;
}
