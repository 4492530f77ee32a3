! Writes forms.txt, the table of numbers in every form that str_write_test.cpp reads:
!   gfortran -std=gnu forms.f90 -o forms && ./forms > forms.txt
! A row: form, kind, bits of the value in hexadecimal, text in quotes (stars: the value does not fit).
program forms
  use, intrinsic :: iso_fortran_env, only: real32, real64, int32, int64
  implicit none

  character(12), parameter :: sFixed(18) = [character(12) :: &
    '(F0.1)', '(F0.2)', '(F0.3)', '(F6.1)', '(F6.2)', '(F6.3)', 'F7.1', '(F8.0)', '(F9.6)', &
    '(F12.1)', '(F12.2)', '(F12.3)', '(F14.1)', '(F14.2)', '(F14.3)', 'F16.3', '(F5.3)', '(F4.3)']
  character(12), parameter :: sScientific(11) = [character(12) :: &
    '(ES8.1)', 'ES9.1', 'ES9.2', 'ES9.3E1', 'ES10.3', 'ES10.3E1', 'ES10.4E1', 'ES12.4', 'ES12.4E1', 'ES12.5', 'ES14.5']
  character(12), parameter :: sGeneral(6) = [character(12) :: &
    '1P,G11.4E1', '1P,G12.4E1', '1P,G14.4', '1P,G14.4E1', '1P,G15.7', '(1P,G14.3)']

  ! Ties, values that round to nothing or to another power of ten, negative zero, and numbers too wide.
  real(real64), parameter :: dFixed(13) = [0.0_real64, -0.0_real64, 0.125_real64, -0.375_real64, -0.0004_real64, &
    0.5_real64, -0.5_real64, 9.9996_real64, -0.95_real64, 99999.95_real64, -9999.5_real64, 12345678.25_real64, &
    1.0e15_real64]
  ! Ties, exponents of one, two and three digits, the edge of the missing value, the smallest and largest numbers.
  real(real64), parameter :: dScientific(12) = [0.0_real64, -0.0_real64, 1.25_real64, -9.99996_real64, &
    9.9999e9_real64, 9.99999e-11_real64, 1.0e-20_real64, -9.9e31_real64, 1.401298464324817e-45_real64, &
    3.4028234e38_real64, 4.94065645841246544e-324_real64, -1.7976931348623157e308_real64]
  ! Both sides of each change of layout: a tenth, the powers of ten, the end of the plain layout.
  real(real64), parameter :: dGeneral(17) = [0.0_real64, -0.0_real64, 0.099995_real64, 0.09999_real64, 0.1_real64, &
    0.99995_real64, 9.9995_real64, -99.995_real64, 999.95_real64, 9999.4995_real64, 9999.5_real64, 12345.5_real64, &
    9999999.5_real64, 123.45_real64, 1.0e-10_real64, 9.9e31_real64, 1.0e-100_real64]
  integer :: i

  do i = 1, size(sFixed)
    call Write_Values(sFixed(i), dFixed)
  end do
  do i = 1, size(sScientific)
    call Write_Values(sScientific(i), dScientific)
  end do
  do i = 1, size(sGeneral)
    call Write_Values(sGeneral(i), dGeneral)
  end do

contains

  subroutine Write_Values(sForm, dValue)
    character(*), intent(in) :: sForm
    real(real64), intent(in) :: dValue(:)
    integer :: k
    do k = 1, size(dValue)
      call Write_Value8(sForm, dValue(k))
      if (mod(k, 2) == 1 .and. abs(dValue(k)) < 1.0e38_real64) call Write_Value4(sForm, real(dValue(k), real32))
    end do
  end subroutine

  subroutine Write_Value8(sForm, dValue)
    character(*), intent(in) :: sForm
    real(real64), intent(in) :: dValue
    character(32) :: sText
    character(17) :: sBits
    write (sBits, '(Z16.16)') transfer(dValue, 0_int64)
    write (sText, Bracketed(sForm)) dValue
    call Write_Row(sForm, 'r8', sBits, sText)
  end subroutine

  subroutine Write_Value4(sForm, fValue)
    character(*), intent(in) :: sForm
    real(real32), intent(in) :: fValue
    character(32) :: sText
    character(17) :: sBits
    write (sBits, '(Z8.8)') transfer(fValue, 0_int32)
    write (sText, Bracketed(sForm)) fValue
    call Write_Row(sForm, 'r4', sBits, sText)
  end subroutine

  subroutine Write_Row(sForm, sKind, sBits, sText)
    character(*), intent(in) :: sForm, sKind, sBits, sText
    integer :: nWidth
    nWidth = Width_of(sForm)
    if (nWidth == 0) nWidth = len_trim(sText)
    write (*, '(A)') trim(sForm) // ' ' // sKind // ' ' // trim(sBits) // ' "' // sText(1:nWidth) // '"'
  end subroutine

  function Bracketed(sForm) result(sFull)
    character(*), intent(in) :: sForm
    character(16) :: sFull
    sFull = sForm
    if (sForm(1:1) /= '(') sFull = '(' // trim(sForm) // ')'
  end function

  ! The number between the letter and the point.
  integer function Width_of(sForm)
    character(*), intent(in) :: sForm
    integer :: iEnd, iBegin
    iEnd = index(sForm, '.') - 1
    iBegin = scan(sForm(1:iEnd), 'FSG', back=.true.) + 1
    read (sForm(iBegin:iEnd), *) Width_of
  end function
end program
