CreateObject("QuilletSimulator.Expect").Holds "never", False
Err.Raise 2505, "Here", "it broke"
