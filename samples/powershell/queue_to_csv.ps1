<#
.SYNOPSIS
  A list of record locators becomes one CSV: the names, flights, tickets and special services of each PNR.
.DESCRIPTION
  On a desktop with Quillet, the library registered, with the 32-bit PowerShell:

    %SystemRoot%\SysWOW64\WindowsPowerShell\v1.0\powershell.exe -File queue_to_csv.ps1 ABC123 locators.txt >pnrs.csv

  An argument that is the name of a file means the locators in it, one a line. The CSV (RFC 4180) goes to standard
  output, everything else to standard error. A PNR that is not found is skipped; the status is 1 when an error ends the
  list, 2 without locators.
#>
param([Parameter(ValueFromRemainingArguments = $true)] [string[]] $Words)
Set-StrictMode -Version 2
$ErrorActionPreference = 'Stop'

function Get-Locators([string[]] $Words) {
  foreach ($word in $Words) {
    if (Test-Path -LiteralPath $word -PathType Leaf) { $lines = @(Get-Content -LiteralPath $word) } else { $lines = @($word) }
    $lines | ForEach-Object { $_.Trim() } | Where-Object { $_ -ne '' }
  }
}

# Calls a member by name. PowerShell's own look-up knows the members of an object's first interface only, and those that
# read elements are in others. BaseObject is the object without the wrapper that PowerShell gives to what a function
# returns: the library would take the wrapper for the bag.
function Invoke-Member($Object, [string] $Name, $Bag) {
  $arguments = [object[]] @($Bag.PSObject.BaseObject)
  $method = [Reflection.BindingFlags]::InvokeMethod
  [void] [System.__ComObject].InvokeMember($Name, $method, $null, $Object.PSObject.BaseObject, $arguments)
}

# A new bag for each call: a member leaves there what an earlier call has put.
function New-Bag([int] $Index) {
  $bag = New-Object -ComObject Scripting.Dictionary
  $bag.Add('intKeyIndex', $Index)
  return , $bag
}

function Get-Record($Pnr, [string] $Member, [int] $Index) {
  $bag = New-Bag $Index
  Invoke-Member $Pnr $Member $bag
  return , $bag
}

function Get-Element($Pnr, [string] $Kind, [int] $Index) {
  $bag = New-Bag $Index
  $bag.Add('strKeyPNRElement', $Kind)
  Invoke-Member $Pnr 'Elements' $bag
  return , $bag
}

# The value under a key; nothing when the member did not put one. Reading a missing key would add it.
function Get-Value($Bag, [string] $Key) {
  if ($Bag.Exists($Key)) { [string] $Bag.Item($Key) } else { '' }
}

function Get-Belonging($Bag) {
  $segment = Get-Value $Bag 'strKeySegAsso'
  $passenger = Get-Value $Bag 'strKeyPasAsso'
  $parts = @()
  if ($segment -ne '') { $parts += "segment $segment" }
  if ($passenger -ne '') { $parts += "passenger $passenger" }
  $parts -join ' '
}

# A row of the CSV. A value with a comma, a quotation mark or a line break is quoted, its own marks doubled.
function Get-Row([string[]] $Values) {
  $quoted = foreach ($value in $Values) {
    if ($value -match '[,"\r\n]') { '"' + $value.Replace('"', '""') + '"' } else { $value }
  }
  $quoted -join ','
}

# All rows of a PNR at once: one that cannot be read to its end leaves no half of it.
function Get-Rows([string] $Locator) {
  $pnr = New-Object -ComObject Wendrill23.CPNR       # a new one for each PNR: it keeps the creation line
  $rows = @()
  for ($index = 0; $index -lt $pnr.NameElementsCount; ++$index) {
    $bag = Get-Record $pnr 'NameElement' $index
    $name = (Get-Value $bag 'strKeyLastName') + '/' + (Get-Value $bag 'strKeyInitial')
    $rows += Get-Row @($Locator, 'name', (Get-Value $bag 'strKeyElementNr'), $name, '', '', '', '', '',
      (Get-Value $bag 'strKeyPapType'))
  }
  for ($index = 0; $index -lt $pnr.AllAirSegmentsCount; ++$index) {      # flights have times when neither open nor flown
    $bag = Get-Record $pnr 'AllAirSegments' $index
    $flight = (Get-Value $bag 'strKeyAirline') + ' ' + (Get-Value $bag 'strKeyNumber')
    $rows += Get-Row @($Locator, 'segment', (Get-Value $bag 'strKeySegmentNr'), $flight,
      (Get-Value $bag 'strKeyDepCity'), (Get-Value $bag 'strKeyArrCity'), (Get-Value $bag 'strKeyDepDate'),
      (Get-Value $bag 'strKeyDepTime'), (Get-Value $bag 'strKeyArrTime'), ('class ' + (Get-Value $bag 'strKeyClass')))
  }
  for ($index = 0; $index -lt $pnr.AutoTktElementsCount; ++$index) {
    $bag = Get-Element $pnr 'FA' $index
    $rows += Get-Row @($Locator, 'ticket', (Get-Value $bag 'strKeyElementNr'), (Get-Value $bag 'strKeyTktNbr'), '', '',
      '', '', '', (Get-Belonging $bag))
  }
  for ($index = 0; $index -lt $pnr.SpecialServiceElementsCount; ++$index) {
    $bag = Get-Element $pnr 'SSR' $index
    $detail = @((Get-Value $bag 'strKeyAirline'), (Get-Value $bag 'strKeyStatus'), (Get-Belonging $bag)) -ne ''
    $rows += Get-Row @($Locator, 'service', (Get-Value $bag 'strKeyElementNr'), (Get-Value $bag 'strKeyCode'), '', '',
      '', '', '', ($detail -join ' '))
  }
  $rows
}

# The number that the documentation names; any other status is the number itself.
function Get-Number([Exception] $Exception) {
  if (($Exception.HResult -band 0xFFFF0000) -eq 0x800A0000) { $Exception.HResult -band 0xFFFF } else { $Exception.HResult }
}

$locators = @(Get-Locators $Words)
if ($locators.Count -eq 0) {
  [Console]::Error.WriteLine('Name record locators, or a file with one on each line.')
  exit 2
}
$place = ''
try {
  $quillet = New-Object -ComObject Wendrill23.CQuillet     # connects to the running session
  Get-Row @('locator', 'kind', 'number', 'what', 'from', 'to', 'date', 'departs', 'arrives', 'detail')
  foreach ($locator in $locators) {
    $place = " in PNR $locator"
    if ($quillet.RetrieveRecLoc($locator)) {
      Get-Rows $locator
    } else {
      [Console]::Error.WriteLine("There is no PNR $locator.")
    }
  }
} catch {
  $cause = $_.Exception.GetBaseException()
  [Console]::Error.WriteLine("Error $(Get-Number $cause)${place}: $($cause.Message)")
  exit 1
}
