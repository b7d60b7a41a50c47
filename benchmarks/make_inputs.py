#!/usr/bin/env python3
"""Makes the inputs of the benchmarks in the given folder: record files of several sizes and dBase tables."""
import datetime, os, random, struct, sys
out = sys.argv[1]; os.makedirs(out, exist_ok=True)
random.seed(7)
def record(path, sections, keys):
    with open(path, "wb") as f:
        for s in range(sections):
            f.write(f"[section_{s}]\r\n".encode())
            for k in range(keys):
                v = f"{random.uniform(0,500):.10f} Average annual temperature" if k % 3 else ("true" if k % 2 else f"some\\path\\file_{k}.sil")
                f.write(f"key_{k}={v}\r\n".encode())
record(f"{out}/scenario_size.tvn", 30, 17)      # ~ one scenario: 30 sections, 510 keys
record(f"{out}/wide_500.tvn", 1, 500)
record(f"{out}/wide_1k.tvn", 1, 1000)           # one section, growing: shows how cost grows
record(f"{out}/wide_10k.tvn", 1, 10000)
record(f"{out}/wide_100k.tvn", 1, 100000)
record(f"{out}/many_sections_10k.tvn", 10000, 5)
def dbf(path, rows):
    fields = [("CELL_ID","N",10,0)] + [(f"ATTR_{i}","C",12,0) for i in range(10)] + [(f"VALUE_{i}","N",14,5) for i in range(8)] + [("DAY","D",8,0)]
    rl = 1 + sum(f[2] for f in fields); hl = 32*len(fields)+33
    with open(path,"wb") as f:
        f.write(struct.pack("<BBBBIHH20x",3,124,1,1,rows,hl,rl))
        for n,t,l,d in fields: f.write(n.encode().ljust(11,b"\0")+t.encode()+b"\0"*4+bytes([l,d])+b"\0"*14)
        f.write(b"\r")
        for r in range(rows):
            row = b" "
            for n,t,l,d in fields:
                if t=="C": row += f"soil_{(r*7+l)%997}".encode().ljust(l)
                elif t=="D": row += b"20000609"
                elif d: row += f"{random.uniform(0,9999):.5f}".rjust(l).encode()
                else: row += str(r).rjust(l).encode()
            f.write(row)
        f.write(b"\x1a")
dbf(f"{out}/coverage_100k.dbf", 100000)
dbf(f"{out}/coverage_1k.dbf", 1000)
